#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "FilterValue.h"

/// How filters lie in the database: a JSON object, its keys in the caller's order. A list of texts
/// lies there as a JSON array.
namespace wendlow::FilterText {

std::string write(std::span<const FilterPair> filters);
std::vector<FilterPair> read(std::string_view json);

std::string writeList(std::span<const std::string> texts);
std::vector<std::string> readList(std::string_view json);

/// A value as a person reads it; a whole number without a point.
std::string printed(const FilterValue& value);

} // namespace wendlow::FilterText
