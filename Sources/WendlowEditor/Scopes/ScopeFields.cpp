#include "Scopes/ScopeFields.h"

#include "Say.h"
#include "Scopes/EditorScopePaths.h"

namespace wendlow::ScopeFields {

namespace {

struct Faults {
    const char* isRelative;
    const char* breaksLines;
};
constexpr Faults ofScope{
    .isRelative = sayLater("A scope’s path begins with “/”."),
    .breaksLines = sayLater("A scope’s path holds no line break or other control character.")};
constexpr Faults ofFolder{
    .isRelative = sayLater("A folder’s path begins with “/”."),
    .breaksLines = sayLater("A folder’s path holds no line break or other control character.")};

std::string faultOfPath(std::string_view path, const Faults& faults) {
    if (!path.starts_with('/'))
        return say(faults.isRelative);
    if (EditorScopePaths::breaksLines(path))
        return say(faults.breaksLines);
    return {};
}

} // namespace

std::string faultOfScope(std::string_view path) {
    std::string fault = faultOfPath(path, ofScope);
    const bool isRoot = path == "/";
    if (fault.empty() && !isRoot && (path.contains("//") || path.ends_with('/')))
        fault = say("A scope’s path has no empty piece and does not end with “/”.");
    return fault;
}

std::string faultOfFolder(std::string_view path) {
    return faultOfPath(path, ofFolder);
}

std::string faultOfRename(std::string_view from, std::string_view to) {
    if (from == to)
        return say("That is its path already.");
    return faultOfScope(to);
}

std::string faultOfRetire(std::string_view scope, std::string_view destination) {
    std::string fault = faultOfScope(destination);
    if (fault.empty() && EditorScopePaths::inScope(destination, scope))
        fault = say("Its contents can’t move to itself or below it.");
    return fault;
}

} // namespace wendlow::ScopeFields
