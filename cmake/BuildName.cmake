# Writes the name of the commit that is built, where the tree knows it. The file changes with it alone.
execute_process(COMMAND git -C ${SOURCE} rev-parse --short=12 HEAD
    OUTPUT_VARIABLE name OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
file(CONFIGURE OUTPUT ${HEADER} CONTENT [[
#pragma once

#include <string_view>

namespace wendlow {

inline constexpr std::string_view buildName = "@name@"; ///< empty: nobody knows

} // namespace wendlow
]] @ONLY)
