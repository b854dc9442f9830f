#pragma once

#include "Model/EditorMemory.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

// GCC wants an initializer for each field that a designated list may leave out.
// NOLINTBEGIN(readability-redundant-member-init)

struct EditorRule {
    std::string id;
    std::string text;
    bool enabled = true;

    bool operator==(const EditorRule&) const = default;
};

struct EditorApp {
    std::string id;
    std::string name;

    bool operator==(const EditorApp&) const = default;
};

/// A node of the scope tree.
struct EditorScope {
    std::string id; ///< the scope's path; the root is "/"
    std::string title;
    std::vector<EditorRule> rules = {};
    std::vector<EditorApp> apps = {};
    std::vector<EditorMemory> memories = {};
    std::vector<std::string> folderPaths = {};
    std::vector<EditorScope> children = {};

    static EditorScope root() { return {.id = "/", .title = "/"}; }

    bool operator==(const EditorScope&) const = default;

    /// This node or one below it, depth first. Null: there is none of this id.
    const EditorScope* find(std::string_view wanted) const;
    /// A copy in which the node that `find` gives has been changed.
    EditorScope updating(std::string_view wanted,
                         const std::function<void(EditorScope&)>& change) const;
    /// A copy without the children of this id, at any depth.
    EditorScope removing(std::string_view unwanted) const;
};

/// A row of the board of scopes.
struct EditorScopeRow {
    std::string path;
    std::vector<std::string> folders = {}; ///< that map to it
    std::vector<EditorCount> kinds = {};   ///< of the memories that are filed exactly here

    bool operator==(const EditorScopeRow&) const = default;

    /// 0 for the root.
    std::size_t depth() const;
};

// NOLINTEND(readability-redundant-member-init)

} // namespace wendlow
