#include "Catalogue.h"

#include "GatewayPage.h"

#include <array>
#include <stdexcept>

#include <fmt/format.h>

namespace wendlow::testing {

namespace {

/// A kind of entries, and the heading under which the page has them.
struct Kind {
    const char* name;
    const char* heading;
};

constexpr std::array<Kind, 9> kinds{{
    {"read", "ReadRequest"},
    {"control", "ControlRequest"},
    {"notes", "NotesRequest"},
    {"diagnostic", "DiagnosticRequest"},
    {"answer", "GatewayResponse"},
    {"event", "GatewayEvent"},
    {"ShortcutInjection", "ShortcutInjection"},
    {"record", "Records"},
    {"words", "Words"},
}};

/// Of "`query`: string, `limit`: int?".
std::vector<Catalogue::Item> itemsOf(const std::string& cell) {
    std::vector<Catalogue::Item> items;
    for (std::size_t begin = 0, end = 0; begin < cell.size(); begin = end + 2) {
        end = std::min(cell.find(", ", begin), cell.size());
        const std::size_t colon = cell.find(": ", begin);
        Catalogue::Item item{.name = cell.substr(begin + 1, colon - begin - 2),
                             .type = cell.substr(colon + 2, end - colon - 2)};
        if (item.type.ends_with('?'))
            item.presence = Catalogue::Item::optional;
        if (item.type.ends_with('~'))
            item.presence = Catalogue::Item::filledIn;
        if (item.presence != Catalogue::Item::required)
            item.type.pop_back();
        items.push_back(std::move(item));
    }
    return items;
}

/// Of "`shipped`, `user`".
std::vector<std::string> wordsOf(const std::string& cell) {
    std::vector<std::string> words;
    for (std::size_t begin = 0; (begin = cell.find('`', begin)) != std::string::npos;) {
        const std::size_t end = cell.find('`', begin + 1);
        words.push_back(cell.substr(begin + 1, end - begin - 1));
        begin = end + 1;
    }
    return words;
}

const Catalogue::Entry* find(const std::vector<Catalogue::Entry>& entries, std::string_view name) {
    for (const auto& entry : entries)
        if (entry.name == name)
            return &entry;
    return nullptr;
}

} // namespace

Catalogue::Catalogue() {
    const GatewayPage page;
    for (const Kind& kind : kinds)
        for (const GatewayPage::Row& row : page.table(kind.heading)) {
            // A request has its verb before its items, and what answers it behind them.
            const bool isRequest = row.size() == 4;
            Entry entry{.name = GatewayPage::unquoted(row[0]),
                        .verb = isRequest ? GatewayPage::unquoted(row[1]) : std::string(),
                        .items = {},
                        .words = {}};
            if (std::string_view(kind.name) == "words")
                entry.words = wordsOf(row[1]);
            else
                entry.items = itemsOf(row[isRequest ? 2 : 1]);
            m_entries[kind.name].push_back(std::move(entry));
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
