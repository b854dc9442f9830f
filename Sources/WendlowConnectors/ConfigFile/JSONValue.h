#pragma once

#include <map>
#include <string>
#include <variant>
#include <vector>

namespace wendlow {

/// The plain view of a document: no offsets, no member order.
///
/// Compares structurally. Numbers compare as their source text, deliberately: `1` and `1.0` are
/// different values here, because they are different bytes in somebody's file.
struct JSONValue {
    using Object = std::map<std::string, JSONValue, std::less<>>;
    using Array = std::vector<JSONValue>;
    struct Number {
        std::string text;
        bool operator==(const Number&) const = default;
    };
    struct Null {
        bool operator==(const Null&) const = default;
    };

    std::variant<Object, Array, std::string, Number, bool, Null> value;

    bool operator==(const JSONValue&) const = default;
};

} // namespace wendlow
