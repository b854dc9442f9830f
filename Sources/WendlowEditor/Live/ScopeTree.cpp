#include "Live/ScopeTree.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

EditorScope& childOf(EditorScope& scope, const std::string& id, std::string_view title) {
    auto& children = scope.children;
    auto child = std::ranges::lower_bound(children, id, {}, &EditorScope::id);
    if (child == children.end() || child->id != id)
        child = children.insert(child, {.id = id, .title = std::string(title)});
    return *child;
}

/// The node of `path`, made with all above it where they are missing. It bears the path as it is
/// said, since that is what is asked for and mapped to; doubled slashes and one at the end only add
/// nothing above it.
EditorScope& ensure(EditorScope& root, const std::string& path) {
    EditorScope* scope = &root;
    std::string above;
    for (std::size_t at = path.find_first_not_of('/'); at != std::string::npos;) {
        const auto end = std::min(path.find('/', at), path.size());
        const auto name = std::string_view(path).substr(at, end - at);
        at = path.find_first_not_of('/', end);
        above.append("/").append(name);
        scope = &childOf(*scope, at == std::string::npos ? path : above, name);
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
