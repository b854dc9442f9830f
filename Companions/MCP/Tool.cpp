#include "Tool.h"

#include <algorithm>
#include <cmath>
#include <ranges>

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <fmt/format.h>
#include <fmt/ranges.h>

#include "WireCodec.h"

namespace wendlow {

namespace {

namespace json = boost::json;
using Kind = ToolArgument::Kind;

/// Which chat and which subagent made a call, as our own hooks add them.
constexpr std::string_view sessionKey = "_wendlow_session";
constexpr std::string_view subagentKey = "_wendlow_subagent";

constexpr std::string_view dayPattern = "^[0-9]{4}-[0-9]{2}-[0-9]{2}$";

bool isDay(std::string_view text) {
    constexpr std::string_view form = "0000-00-00";
    return text.size() == form.size() &&
           std::ranges::equal(text, form, [](char letter, char wanted) {
               return wanted == '-' ? letter == '-' : letter >= '0' && letter <= '9';
           });
}

bool isScalar(const json::value& value) {
    return value.is_string() || value.is_number() || value.is_bool();
}

/// A whole number, also where it is spelled with a fraction of zero.
std::optional<std::int64_t> wholeNumber(const json::value& value) {
    if (value.is_int64())
        return value.get_int64();
    constexpr double exact = 9007199254740992; // beyond it a double skips numbers
    if (value.is_double() && std::trunc(value.get_double()) == value.get_double() &&
        std::abs(value.get_double()) < exact)
        return static_cast<std::int64_t>(value.get_double());
    return std::nullopt;
}

bool isOf(const ToolArgument& argument, const json::value& value) {
    switch (argument.kind) {
    case Kind::text:
        return value.is_string();
    case Kind::day:
        return value.is_string() && isDay(value.get_string());
    case Kind::number:
        return wholeNumber(value).value_or(0) >= 1 && *wholeNumber(value) <= argument.most;
    case Kind::flag:
        return value.is_bool();
    case Kind::names:
        return value.is_array() &&
               std::ranges::all_of(value.get_array(),
                                   [](const json::value& name) { return name.is_string(); });
    case Kind::filters:
        return value.is_object() && std::ranges::all_of(value.get_object(), [](const auto& pair) {
                   return isScalar(pair.value());
               });
    }
    return false;
}

std::string words(const ToolArgument& argument) {
    switch (argument.kind) {
    case Kind::text:
        return "a text";
    case Kind::day:
        return "a day such as 2026-11-21";
    case Kind::number:
        return fmt::format("a whole number from 1 to {}", argument.most);
    case Kind::flag:
        return "true or false";
    case Kind::names:
        return "a list of texts";
    case Kind::filters:
        return "an object whose values are texts, numbers, true or false";
    }
    return {};
}

json::object shape(const ToolArgument& argument) {
    switch (argument.kind) {
    case Kind::text:
        return {{"type", "string"}};
    case Kind::day:
        return {{"type", "string"}, {"pattern", dayPattern}};
    case Kind::number:
        return {{"type", "integer"}, {"minimum", 1}, {"maximum", argument.most}};
    case Kind::flag:
        return {{"type", "boolean"}};
    case Kind::names:
        return {{"type", "array"}, {"items", {{"type", "string"}}}};
    case Kind::filters:
        // A list of types is JSON Schema, too, but dialects of some models lack it.
        return {{"type", "object"},
                {"additionalProperties",
                 {{"anyOf",
                   {json::object{{"type", "string"}}, json::object{{"type", "number"}},
                    json::object{{"type", "boolean"}}}}}}};
    }
    return {};
}

json::object schema(const ToolArgument& argument) {
    json::object schema = shape(argument);
    schema.emplace("description", argument.description);
    return schema;
}

json::object annotations(const Tool& tool) {
    using Effect = Tool::Effect;
    json::object hints{{"title", tool.title}, {"readOnlyHint", tool.effect == Effect::reads}};
    if (tool.effect != Effect::reads) {
        // What is written over does not come back, any more than what is removed.
        hints.emplace("destructiveHint", tool.effect != Effect::adds);
        hints.emplace("idempotentHint", tool.effect == Effect::changes);
    }
    hints.emplace("openWorldHint", false);
    return hints;
}

/// A hook's own word, where it is one.
void takeOver(const json::object& given, std::string_view key, std::optional<std::string>& target) {
    const json::value* const value = given.if_contains(key);
    if (value != nullptr && value->is_string() && !value->get_string().empty())
        target = std::string(value->get_string());
}

void addCaller(json::object& items, const std::vector<std::string_view>& asked,
               const ToolCaller& caller) {
    for (const std::string_view item : asked) {
        if (item == "writer")
            items[item] = caller.writer;
        const auto& known = item == "session" ? caller.session : caller.subagent;
        if (item != "writer" && known)
            items[item] = *known;
    }
}

/// The names of some arguments, as a sentence counts them up.
template<class Choose>
std::string names(const std::vector<ToolArgument>& arguments, const Choose& choose,
                  std::string_view last) {
    std::vector<std::string_view> chosen;
    for (const ToolArgument& argument : arguments)
        if (choose(argument))
            chosen.push_back(argument.name);
    if (chosen.size() < 2)
        return fmt::format("{}", fmt::join(chosen, ""));
    const std::string_view end = chosen.back();
    chosen.pop_back();
    return fmt::format("{} {} {}", fmt::join(chosen, ", "), last, end);
}

} // namespace

json::value Tool::listed() const {
    json::object properties;
    json::array required;
    for (const ToolArgument& argument : arguments) {
        properties.emplace(argument.name, schema(argument));
        if (argument.isRequired)
            required.emplace_back(argument.name);
    }
    json::object input{{"type", "object"}, {"properties", std::move(properties)}};
    if (!required.empty())
        input.emplace("required", std::move(required));
    input.emplace("additionalProperties", false);
    return json::object{{"name", name},
                        {"title", title},
                        {"description", description},
                        {"inputSchema", std::move(input)},
                        {"annotations", annotations(*this)}};
}

std::expected<GatewayRequest, std::string> Tool::read(const json::value& given,
                                                      ToolCaller caller) const {
    if (!given.is_object() && !given.is_null())
        return std::unexpected(fmt::format("the arguments of {} are an object", name));
    const json::object none;
    const json::object& object = given.is_object() ? given.get_object() : none;
    for (const auto& pair : object) {
        const std::string_view key = pair.key();
        if (std::ranges::find(arguments, key, &ToolArgument::name) == arguments.end() &&
            key != sessionKey && key != subagentKey)
            return std::unexpected(fmt::format(
                "{} has no argument “{}”; it has {}", name, key,
                arguments.empty() ? "none"
                                  : names(arguments, [](const auto&) { return true; }, "and")));
    }
    takeOver(object, sessionKey, caller.session);
    takeOver(object, subagentKey, caller.subagent);
    json::object asItems = json::parse(items).as_object();
    addCaller(asItems, tells, caller);
    bool hasOneMore = false;
    for (const ToolArgument& argument : arguments) {
        const json::value* const value = object.if_contains(argument.name);
        const bool isGiven = value != nullptr && !value->is_null();
        if (!isGiven && argument.isRequired)
            return std::unexpected(fmt::format("{} needs {}", name, argument.name));
        if (!isGiven)
            continue;
        if (!isOf(argument, *value))
            return std::unexpected(
                fmt::format("“{}” of {} is {}", argument.name, name, words(argument)));
        hasOneMore = hasOneMore || !argument.isRequired;
        if (argument.kind == Kind::number)
            asItems[argument.item] = *wholeNumber(*value);
        else
            asItems[argument.item] = *value;
    }
    if (needsOneMore && !hasOneMore)
        return std::unexpected(
            fmt::format("{} needs at least one of {}", name,
                        names(arguments, [](const auto& one) { return !one.isRequired; }, "and")));
    json::object asked;
    asked.emplace(request, std::move(asItems));
    auto decoded = WireCodec::decodeRequest(
        fmt::format(R"({{"{}":{{"_0":{}}}}})", family, json::serialize(asked)));
    if (!decoded)
        return std::unexpected(
            fmt::format("{} cannot be asked so: {}", name, decoded.error().sentence));
    return std::move(*decoded);
}

} // namespace wendlow
