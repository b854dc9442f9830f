#pragma once

#include "Model/EditorScope.h"

#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// What is done to paths of scopes. Pure; a path is taken as it is written.
namespace EditorScopePaths {

/// The scope above; that above the root is the root.
std::string parent(std::string_view path);

/// Whether `path` is `scope` or lies below it, whole pieces only.
bool inScope(std::string_view path, std::string_view scope);

/// Where `path` comes to lie when `from` and all below it moves to `to`. What is not in `from`
/// stays.
std::string reparent(std::string_view path, std::string_view from, std::string_view to);

/// `base` with `rest` below it, which begins with a slash or is empty.
std::string join(std::string_view base, std::string_view rest);

/// Whether a name would end a line where it is written into one: it holds a line break or another
/// control character, of any script.
bool breaksLines(std::string_view name);

} // namespace EditorScopePaths

/// What is done to the board of scopes.
namespace EditorScopeBoard {

/// By path; of equal ones the first stays the first.
std::vector<EditorScopeRow> directoryOrdered(std::vector<EditorScopeRow> rows);

/// The rows of a scope and of all below it, in their order.
std::vector<EditorScopeRow> subtree(const std::vector<EditorScopeRow>& rows, std::string_view path);

} // namespace EditorScopeBoard

} // namespace wendlow
