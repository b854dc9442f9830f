#include "Live/ScopeTree.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

/// The node of `path` below `scope`, made with all above it where they are missing. A path is what
/// lies between its slashes: doubled ones and one at the end say nothing.
EditorScope& ensure(EditorScope& root, std::string_view path) {
    EditorScope* scope = &root;
    std::string id;
    for (std::size_t at = path.find_first_not_of('/'); at != std::string_view::npos;) {
        const auto end = std::min(path.find('/', at), path.size());
        const std::string_view name = path.substr(at, end - at);
        id.append("/").append(name);
        auto& children = scope->children;
        auto child = std::ranges::lower_bound(children, id, {}, &EditorScope::id);
        if (child == children.end() || child->id != id)
            child = children.insert(child, {.id = id, .title = std::string(name)});
        scope = &*child;
        at = path.find_first_not_of('/', end);
    }
    return *scope;
}

} // namespace

EditorScope ScopeTree::tree(std::vector<ScopeBoardEntry> entries) {
    std::ranges::stable_sort(entries, {}, &ScopeBoardEntry::path);
    EditorScope root = EditorScope::root();
    for (ScopeBoardEntry& entry : entries)
        ensure(root, entry.path).folderPaths = std::move(entry.folders);
    return root;
}

std::vector<EditorScopeRow> ScopeTree::board(const std::vector<ScopeBoardEntry>& entries) {
    std::vector<EditorScopeRow> rows;
    rows.reserve(entries.size());
    for (const ScopeBoardEntry& entry : entries) {
        auto& row = rows.emplace_back(EditorScopeRow{.path = entry.path, .folders = entry.folders});
        for (const KindCount& kind : entry.kinds)
            row.kinds.push_back({.name = kind.kind, .count = kind.count});
    }
    return rows;
}

} // namespace wendlow
