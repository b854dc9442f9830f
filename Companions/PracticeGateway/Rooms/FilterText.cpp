#include "FilterText.h"

#include <cmath>

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value.hpp>
#include <fmt/format.h>

namespace wendlow::FilterText {
namespace {

FilterValue valueOf(const boost::json::value& json) {
    if (const auto* text = json.if_string())
        return std::string(*text);
    if (const auto* flag = json.if_bool())
        return *flag;
    return json.to_number<double>();
}

} // namespace

std::string write(std::span<const FilterPair> filters) {
    boost::json::object object;
    for (const FilterPair& filter : filters)
        std::visit([&](const auto& value) { object[filter.key] = value; },
                   static_cast<const FilterValue::variant&>(filter.value));
    return boost::json::serialize(object);
}

std::vector<FilterPair> read(std::string_view json) {
    std::vector<FilterPair> filters;
    const auto value = boost::json::parse({json.data(), json.size()});
    for (const auto& member : value.as_object())
        filters.push_back({std::string(member.key()), valueOf(member.value())});
    return filters;
}

std::string writeList(std::span<const std::string> texts) {
    boost::json::array array;
    for (const std::string& text : texts)
        array.emplace_back(text);
    return boost::json::serialize(array);
}

std::vector<std::string> readList(std::string_view json) {
    std::vector<std::string> texts;
    const auto value = boost::json::parse({json.data(), json.size()});
    for (const auto& item : value.as_array())
        texts.emplace_back(item.as_string());
    return texts;
}

std::string printed(const FilterValue& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    if (const bool* flag = std::get_if<bool>(&value))
        return *flag ? "true" : "false";
    const double number = std::get<double>(value);
    if (std::trunc(number) == number && std::abs(number) < 1e15)
        return fmt::format("{}", static_cast<std::int64_t>(number));
    return fmt::format("{}", number);
}

} // namespace wendlow::FilterText
