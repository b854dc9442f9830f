#pragma once

#include <cstdint>
#include <string_view>

/// What a person sees as one character: a letter with its accents, a flag, a family of emoji.
namespace wendlow::Characters {

/// How many stand in a text. Costs little more than a walk over its bytes, as long as few of them
/// are of scripts whose characters combine.
std::int64_t count(std::string_view utf8);

} // namespace wendlow::Characters
