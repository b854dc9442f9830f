#include "Scopes/ScopeFields.h"

#include "Scopes/EditorScopePaths.h"

#include <fmt/format.h>

namespace wendlow::ScopeFields {

namespace {

/// `what`: as in "A scope’s path".
std::string faultOfPath(std::string_view path, std::string_view what) {
    if (!path.starts_with('/'))
        return fmt::format("{} begins with “/”.", what);
    if (EditorScopePaths::breaksLines(path))
        return fmt::format("{} holds no line break or other control character.", what);
    return {};
}

} // namespace

std::string faultOfScope(std::string_view path) {
    std::string fault = faultOfPath(path, "A scope’s path");
    const bool isRoot = path == "/";
    if (fault.empty() && !isRoot && (path.contains("//") || path.ends_with('/')))
        fault = "A scope’s path has no empty piece and does not end with “/”.";
    return fault;
}

std::string faultOfFolder(std::string_view path) {
    return faultOfPath(path, "A folder’s path");
}

std::string faultOfRename(std::string_view from, std::string_view to) {
    if (from == to)
        return "That is its path already.";
    return faultOfScope(to);
}

std::string faultOfRetire(std::string_view scope, std::string_view destination) {
    std::string fault = faultOfScope(destination);
    if (fault.empty() && EditorScopePaths::inScope(destination, scope))
        fault = "Its contents can’t move to itself or below it.";
    return fault;
}

} // namespace wendlow::ScopeFields
