#include "ScopeName.h"

#include "ScopePath.h"

namespace wendlow::ScopeName {

bool isValid(std::string_view path) {
    if (path == ScopePath::root)
        return true;
    return path.starts_with('/') && !path.ends_with('/') && !path.contains("//") &&
           !path.contains('\n');
}

std::vector<std::string> chain(std::string_view path) {
    std::vector<std::string> scopes{std::string(ScopePath::root)};
    if (path == ScopePath::root)
        return scopes;
    for (auto end = path.find('/', 1); end != std::string_view::npos; end = path.find('/', end + 1))
        scopes.emplace_back(path.substr(0, end));
    scopes.emplace_back(path);
    return scopes;
}

} // namespace wendlow::ScopeName
