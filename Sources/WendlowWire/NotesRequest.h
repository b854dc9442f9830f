#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Described.h"
#include "FilterValue.h"

namespace wendlow {

namespace NotesCase {

/// Files a memory under `path`.
struct Write {
    std::string text;
    std::string why;
    std::string writer;
    std::string type;
    std::string path;
    std::optional<std::map<std::string, FilterValue>> filters = std::nullopt;
    std::optional<std::string> title = std::nullopt;
    std::optional<std::string> session = std::nullopt;
    std::optional<std::string> subagent = std::nullopt;
    WENDLOW_REQUEST(Write, "write", "memory_add", text, why, writer, type, path, filters, title,
                    session, subagent);
};

struct Delete {
    std::string id;
    WENDLOW_REQUEST(Delete, "delete", "memory_delete", id);
};

/// Replaces what is present and leaves the rest.
struct Edit {
    std::string id;
    std::optional<std::string> text = std::nullopt;
    std::optional<std::string> why = std::nullopt;
    std::optional<std::string> type = std::nullopt;
    std::optional<std::string> path = std::nullopt;
    std::optional<std::map<std::string, FilterValue>> filters = std::nullopt;
    std::optional<std::string> title = std::nullopt;
    WENDLOW_REQUEST(Edit, "edit", "memory_edit", id, text, why, type, path, filters, title);
};

/// A find and replace in one field, once or everywhere.
struct Patch {
    std::string id;
    std::string field;
    std::string find;
    std::string replace;
    bool replaceAll = false;
    WENDLOW_REQUEST(Patch, "patch", "memory_patch", id, field, find, replace, replaceAll);
};

struct EditFilters {
    std::string id;
    std::optional<std::map<std::string, FilterValue>> set = std::nullopt;
    std::optional<std::vector<std::string>> unset = std::nullopt;
    WENDLOW_REQUEST(EditFilters, "editFilters", "memory_edit_filters", id, set, unset);
};

/// Binds a folder to a scope.
struct MapPath {
    std::string folder;
    std::string path;
    WENDLOW_REQUEST(MapPath, "mapPath", "scope_map_folder", folder, path);
};

/// Sets the scope of a session.
struct SetPath {
    std::string path;
    std::string writer;
    std::optional<std::string> session = std::nullopt;
    WENDLOW_REQUEST(SetPath, "setPath", "scope_set_for_session", path, writer, session);
};

struct ModInstall {
    std::string name;
    std::string writer;
    WENDLOW_REQUEST(ModInstall, "modInstall", "mod_install", name, writer);
};

/// The names by which the person goes. Without a list it only asks.
struct SelfNames {
    std::optional<std::vector<std::string>> names = std::nullopt;
    WENDLOW_REQUEST(SelfNames, "selfNames", "self_names", names);
};

struct ListPaths {
    WENDLOW_REQUEST(ListPaths, "listPaths", "scope_list_all");
};

struct ScopeBoard {
    WENDLOW_REQUEST(ScopeBoard, "scopeBoard", "scope_board");
};

} // namespace NotesCase

/// What writes into the memory, and the two questions that belong to its vocabulary.
struct NotesRequest : std::variant<NotesCase::Write, NotesCase::Delete, NotesCase::Edit,
                                   NotesCase::Patch, NotesCase::EditFilters, NotesCase::MapPath,
                                   NotesCase::SetPath, NotesCase::ModInstall, NotesCase::SelfNames,
                                   NotesCase::ListPaths, NotesCase::ScopeBoard> {
    WENDLOW_CASES(NotesRequest);

    static constexpr std::string_view typeName = "NotesRequest";

    /// The snake-case word that names the request in logs and refusals.
    std::string_view verb() const;

    /// The verbs of all cases, in the order of the cases.
    static const std::array<std::string_view, 11> allVerbs;
};

} // namespace wendlow
