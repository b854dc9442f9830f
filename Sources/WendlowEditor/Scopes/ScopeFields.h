#pragma once

#include <string>
#include <string_view>

/// What keeps the words in a field of the sheets from being what is asked for, in a sentence; empty
/// where nothing does. Pure.
namespace wendlow::ScopeFields {

std::string faultOfScope(std::string_view path);
std::string faultOfFolder(std::string_view path);
std::string faultOfRename(std::string_view from, std::string_view to);
std::string faultOfRetire(std::string_view scope, std::string_view destination);

} // namespace wendlow::ScopeFields
