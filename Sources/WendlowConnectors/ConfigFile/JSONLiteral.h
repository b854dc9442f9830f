#pragma once

#include "ConfigFile/JSONValue.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace wendlow {

/// How a literal is laid out.
struct RenderStyle {
    bool multiline = false;     ///< one member or element per line
    std::string newline = "\n"; ///< "\n" or "\r\n"
};

/// A value to be written. A small closed set: there is no null, because no connector writes one.
struct JSONLiteral {
    using Object = std::vector<std::pair<std::string, JSONLiteral>>; ///< in the order of writing
    using Array = std::vector<JSONLiteral>;

    std::variant<Object, Array, std::string, std::int64_t, bool> content;

    static JSONLiteral object(Object members) { return {std::move(members)}; }
    static JSONLiteral array(Array elements) { return {std::move(elements)}; }
    static JSONLiteral string(std::string text) { return {std::move(text)}; }
    static JSONLiteral number(std::int64_t number) { return {number}; }
    static JSONLiteral boolean(bool value) { return {value}; }

    /// The plain view of the literal; of duplicate keys the last wins.
    JSONValue value() const;
    /// The literal as text. `indent` is the indentation of the line it begins on, `unit` one step
    /// of indentation; both are used only when `style.multiline`.
    std::string render(std::string_view indent, std::string_view unit,
                       const RenderStyle& style) const;
    /// `text` as a JSON string with its quotation marks. `/` and non-ASCII stay as they are.
    static std::string quote(std::string_view text);

    bool operator==(const JSONLiteral&) const = default;
};

} // namespace wendlow
