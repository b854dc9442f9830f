#pragma once

#include "ConfigFile/JSONLiteral.h"

#include <string>
#include <string_view>

/// A file's name, and what a file says, may be any bytes. A terminal and JSON may not have all of
/// them.
namespace wendlow::connect::SafeText {

/// For JSON: what is no UTF-8 is replaced.
JSONLiteral literal(std::string_view bytes);
/// For a terminal: what it would take for a command is written out.
std::string shown(std::string_view bytes);

} // namespace wendlow::connect::SafeText
