#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Described.h"
#include "FilterValue.h"

namespace wendlow {

/// What writes into the memory, and the two questions that belong to its vocabulary. The catalogue
/// holds those that the application sends so far.
namespace NotesCase {

struct EditFilters {
    std::string id;
    std::optional<std::map<std::string, FilterValue>> set = std::nullopt;
    std::optional<std::vector<std::string>> unset = std::nullopt;
    WENDLOW_REQUEST(EditFilters, "editFilters", "memory_edit_filters", id, set, unset);
};

struct SelfNames {
    std::optional<std::vector<std::string>> names = std::nullopt;
    WENDLOW_REQUEST(SelfNames, "selfNames", "self_names", names);
};

struct ListPaths {
    WENDLOW_REQUEST(ListPaths, "listPaths", "scope_list_all");
};

} // namespace NotesCase

struct NotesRequest
    : std::variant<NotesCase::EditFilters, NotesCase::SelfNames, NotesCase::ListPaths> {
    using variant::variant;

    static constexpr std::string_view typeName = "NotesRequest";

    std::string_view verb() const;
};

} // namespace wendlow
