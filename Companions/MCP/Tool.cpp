#include "Tool.h"

#include <algorithm>
#include <array>
#include <ranges>

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>
#include <fmt/format.h>
#include <fmt/ranges.h>

#include "WireCodec.h"

namespace wendlow {

namespace {

namespace json = boost::json;
using Kind = ToolArgument::Kind;

/// Which chat and which subagent made a call.
constexpr std::array<std::string_view, 2> ofOurHooks = {"_wendlow_session", "_wendlow_subagent"};

bool isScalar(const json::value& value) {
    return value.is_string() || value.is_number() || value.is_bool();
}

bool isOf(Kind kind, const json::value& value) {
    switch (kind) {
    case Kind::text:
        return value.is_string();
    case Kind::filters:
        return value.is_object() && std::ranges::all_of(value.get_object(), [](const auto& pair) {
                   return isScalar(pair.value());
               });
    }
    return false;
}

std::string_view words(Kind kind) {
    switch (kind) {
    case Kind::text:
        return "a text";
    case Kind::filters:
        return "an object whose values are texts, numbers, true or false";
    }
    return {};
}

json::object schema(const ToolArgument& argument) {
    switch (argument.kind) {
    case Kind::text:
        return {{"type", "string"}, {"description", argument.description}};
    case Kind::filters:
        return {{"type", "object"},
                {"additionalProperties", {{"type", {"string", "number", "boolean"}}}},
                {"description", argument.description}};
    }
    return {};
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
    return json::object{
        {"name", name}, {"description", description}, {"inputSchema", std::move(input)}};
}

std::expected<GatewayRequest, std::string> Tool::read(const json::value& given) const {
    if (!given.is_object() && !given.is_null())
        return std::unexpected(fmt::format("the arguments of {} are an object", name));
    const json::object none;
    const json::object& object = given.is_object() ? given.get_object() : none;
    for (const auto& pair : object) {
        const std::string_view key = pair.key();
        if (std::ranges::find(arguments, key, &ToolArgument::name) == arguments.end() &&
            std::ranges::find(ofOurHooks, key) == ofOurHooks.end())
            return std::unexpected(
                fmt::format("{} has no argument “{}”; it has {}", name, key,
                            names(arguments, [](const auto&) { return true; }, "and")));
    }
    json::object items;
    bool hasOneMore = false;
    for (const ToolArgument& argument : arguments) {
        const json::value* const value = object.if_contains(argument.name);
        const bool isGiven = value != nullptr && !value->is_null();
        if (!isGiven && argument.isRequired)
            return std::unexpected(fmt::format("{} needs {}", name, argument.name));
        if (!isGiven)
            continue;
        if (!isOf(argument.kind, *value))
            return std::unexpected(
                fmt::format("“{}” of {} is {}", argument.name, name, words(argument.kind)));
        hasOneMore = hasOneMore || !argument.isRequired;
        items.emplace(argument.item, *value);
    }
    if (needsOneMore && !hasOneMore)
        return std::unexpected(
            fmt::format("{} needs at least one of {}", name,
                        names(arguments, [](const auto& one) { return !one.isRequired; }, "and")));
    json::object asked;
    asked.emplace(request, std::move(items));
    auto decoded = WireCodec::decodeRequest(
        fmt::format(R"({{"{}":{{"_0":{}}}}})", family, json::serialize(asked)));
    if (!decoded)
        return std::unexpected(
            fmt::format("{} cannot be asked so: {}", name, decoded.error().sentence));
    return std::move(*decoded);
}

} // namespace wendlow
