#include "Catalogue.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

#include <fmt/format.h>

namespace wendlow::testing {

namespace {

Catalogue::Item itemOf(const std::string& word) {
    const std::size_t colon = word.find(':');
    Catalogue::Item item{.name = word.substr(0, colon), .type = word.substr(colon + 1)};
    if (item.type.ends_with('?'))
        item.presence = Catalogue::Item::optional;
    if (item.type.ends_with('~'))
        item.presence = Catalogue::Item::filledIn;
    if (item.presence != Catalogue::Item::required)
        item.type.pop_back();
    return item;
}

const Catalogue::Entry* find(const std::vector<Catalogue::Entry>& entries, std::string_view name) {
    for (const auto& entry : entries)
        if (entry.name == name)
            return &entry;
    return nullptr;
}

} // namespace

Catalogue::Catalogue() {
    std::ifstream file(WENDLOW_CATALOGUE);
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.starts_with('#'))
            continue;
        std::istringstream columns(line);
        std::string kind;
        Entry entry;
        columns >> kind >> entry.name >> entry.verb;
        for (std::string word; columns >> word && word != "-";)
            kind == "words" ? entry.words.push_back(word) : entry.items.push_back(itemOf(word));
        m_entries[kind].push_back(std::move(entry));
    }
}

std::string Sample::ofCase(const Catalogue::Entry& entry, std::string_view extra) {
    return fmt::format(R"({{"{}":{}}})", entry.name, object(entry, extra));
}

std::string Sample::object(const Catalogue::Entry& entry, std::string_view extra) {
    std::string result(extra);
    for (const Catalogue::Item& item : entry.items) {
        if (m_items++ == m_omitted) {
            m_omittedItem = &item;
            continue;
        }
        const bool isLeftOut = item.presence == Catalogue::Item::required ? false
                               : m_shape == Shape::answered
                                   ? item.presence == Catalogue::Item::optional
                                   : m_shape == Shape::bare;
        if (isLeftOut)
            continue;
        const bool isBlank = item.presence != Catalogue::Item::required && m_shape != Shape::full;
        const std::string_view blank = m_shape == Shape::nulled     ? "null"
                                       : item.type == "bool"        ? "false"
                                       : item.type.starts_with('[') ? "[]"
                                                                    : "0";
        result += fmt::format(R"({}"{}":{})", result.empty() ? "" : ",", item.name,
                              isBlank ? std::string(blank) : value(item.type));
    }
    return '{' + result + '}';
}

std::string Sample::value(std::string_view type) {
    const std::size_t number = ++m_values;
    const std::string_view inner = type.substr(1, type.size() - 2);
    if (type.starts_with('['))
        return fmt::format("[{}]", value(inner));
    if (type.starts_with('{'))
        return fmt::format(R"({{"k{}":{}}})", number, value(inner));
    if (type == "string")
        return fmt::format(R"("s{}")", number);
    if (type == "int")
        return fmt::format("{}", number);
    if (type == "double")
        return fmt::format("{}.5", number);
    if (type == "bool")
        return (number + m_choice) % 2 == 0 ? "true" : "false";
    if (type == "data")
        return R"("AP8Q")";
    if (type == "FilterValue")
        return value(std::array{"string", "double", "bool"}[m_choice % 3]);
    if (const auto* words = find(m_catalogue.of("words"), type))
        return fmt::format(R"("{}")", words->words[m_choice % words->words.size()]);
    if (type == "ShortcutInjection")
        return ofCase(m_catalogue.of("ShortcutInjection")[m_choice % 3]);
    if (const auto* record = find(m_catalogue.of("record"), type))
        return object(*record);
    throw std::logic_error(fmt::format("the catalogue has no {}", type));
}

} // namespace wendlow::testing
