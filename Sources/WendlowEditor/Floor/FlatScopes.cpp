#include "Floor/FlatScopes.h"

namespace wendlow::FlatScopes {

namespace {

void gather(const EditorScope& scope, std::vector<std::string>& paths) {
    paths.push_back(scope.id);
    for (const EditorScope& child : scope.children)
        gather(child, paths);
}

} // namespace

std::vector<std::string> paths(const EditorScope& root) {
    std::vector<std::string> paths;
    gather(root, paths);
    return paths;
}

std::int64_t count(const EditorScope& root) {
    std::int64_t sum = 1;
    for (const EditorScope& child : root.children)
        sum += count(child);
    return sum;
}

} // namespace wendlow::FlatScopes
