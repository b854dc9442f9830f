#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "Described.h"

namespace wendlow {

/// The value of a filter: a bare JSON scalar on the wire, with no wrapper. A number is never taken
/// for a boolean, nor the other way about.
struct FilterValue : std::variant<std::string, double, bool> {
    using variant::variant;

    static constexpr std::string_view notAScalar =
        "a filter value must be a scalar — string, number, or bool (no nesting or arrays)";
};

/// The order of a list of pairs is the caller's.
struct FilterPair {
    std::string key;
    FilterValue value;
    WENDLOW_RECORD(FilterPair, key, value);
};

} // namespace wendlow
