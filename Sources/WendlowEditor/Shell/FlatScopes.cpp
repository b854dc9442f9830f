#include "Shell/FlatScopes.h"

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

} // namespace wendlow::FlatScopes
