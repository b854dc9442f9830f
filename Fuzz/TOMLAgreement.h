#pragma once

#include <string_view>

namespace wendlow::fuzz {

/// What a whole parser of TOML accepts is scanned, and both say the same of every table, key and
/// string and of where they stand.
void requireAgreement(std::string_view bytes);

} // namespace wendlow::fuzz
