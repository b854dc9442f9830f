#pragma once

#include "ConfigFile/JSONNode.h"
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
    struct Member;
    using Object = std::vector<Member>; ///< in the order of writing
    using Array = std::vector<JSONLiteral>;

    std::variant<Object, Array, std::string, std::int64_t, bool> content;

    static JSONLiteral object(Object members);
    static JSONLiteral array(Array elements);
    static JSONLiteral string(std::string text);
    static JSONLiteral number(std::int64_t number);
    static JSONLiteral boolean(bool value);

    /// The plain view of the literal; of duplicate keys the last wins.
    JSONValue value() const;
    /// Whether `node`, of a scan of `bytes`, states this value: whether the plain views of both are
    /// equal, without making either.
    bool isStatedBy(const JSONNode& node, std::string_view bytes) const;
    /// The literal as text. `indent` is the indentation of the line it begins on, `unit` one step
    /// of indentation; both are used only when `style.multiline`.
    std::string render(std::string_view indent, std::string_view unit,
                       const RenderStyle& style) const;
    /// `text` as a JSON string with its quotation marks. `/` and non-ASCII stay as they are.
    static std::string quote(std::string_view text);

    bool operator==(const JSONLiteral& other) const;
};

struct JSONLiteral::Member {
    std::string key;
    JSONLiteral value;

    bool operator==(const Member&) const = default;
};

inline bool JSONLiteral::operator==(const JSONLiteral& other) const {
    return content == other.content;
}

inline JSONLiteral JSONLiteral::object(Object members) {
    return {std::move(members)};
}
inline JSONLiteral JSONLiteral::array(Array elements) {
    return {std::move(elements)};
}
inline JSONLiteral JSONLiteral::string(std::string text) {
    return {std::move(text)};
}
inline JSONLiteral JSONLiteral::number(std::int64_t number) {
    return {number};
}
inline JSONLiteral JSONLiteral::boolean(bool value) {
    return {value};
}

} // namespace wendlow
