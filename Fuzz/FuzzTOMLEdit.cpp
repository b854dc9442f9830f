// Every edit replaces one contiguous range, leaves the rest equal and gives bytes that scan, in
// which nothing is said differently but what was to be edited.

#include "ConfigFile/TOMLEdit.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fmt/format.h>

namespace {

using namespace wendlow;

const TOMLName ours = {"p", "w"};
const TOMLEdit::Line lines[] = {{"k", "\"[#\""}, {"l m", "[]"}};

void require(bool condition) {
    if (!condition)
        std::abort();
}

TOMLDocument scanned(std::string_view bytes) {
    auto document = TOMLText::scan(bytes);
    require(document.has_value());
    return std::move(*document);
}

/// What a table says, apart from where it stands.
using Statement = std::vector<std::string>;

std::string spoken(const TOMLPath& key, std::string_view raw) {
    return fmt::format("{}={}", TOMLText::joined(key), raw);
}

Statement statement(const TOMLDocument& document, const TOMLTable& table) {
    Statement result = {
        fmt::format("{}{}", table.isArrayElement ? "[]" : "", TOMLText::joined(table.name))};
    for (const auto& entry : document.entries(table))
        result.push_back(spoken(entry.key, entry.raw));
    return result;
}

std::vector<Statement> statements(std::string_view bytes) {
    const auto document = scanned(bytes);
    std::vector<Statement> result;
    for (const auto& table : document.tables())
        result.push_back(statement(document, table));
    return result;
}

/// `after` is `before` with `range` replaced.
void requireReplaced(std::string_view before, std::string_view after, ByteRange range) {
    require(after.size() >= before.size() - range.size());
    require(after.starts_with(before.substr(0, range.lower)));
    require(after.ends_with(before.substr(range.upper)));
}

/// White space of at most one line.
void requireOneBlankLine(std::string_view text) {
    require(text.find_first_not_of(" \t\r\n") == std::string_view::npos);
    require(std::ranges::count(text, '\n') <= 1);
}

Statement written(std::string_view name) {
    Statement result = {std::string(name)};
    for (const auto& line : lines)
        result.push_back(spoken({std::array{std::string_view(line.key)}}, line.value));
    return result;
}

void checkTable(std::string_view bytes, const std::vector<Statement>& said,
                const TOMLDocument& document, std::size_t index) {
    const auto& table = document.tables()[index];
    const auto name = table.name.name();
    const auto set = TOMLEdit::setTable(bytes, name, lines);
    require(set && !set->created);
    requireReplaced(bytes, set->bytes, {table.bodyStart, table.bodyEnd});
    auto expected = said;
    expected[index] = written(said[index][0]);
    require(statements(set->bytes) == expected);

    const auto removed = TOMLEdit::removeTable(bytes, name);
    require(removed.has_value());
    const auto start = TOMLEdit::startOfOneBlankLine(bytes, table.headerStart);
    const auto end = start + bytes.size() - removed->size();
    require(end >= table.bodyEnd);
    requireOneBlankLine(bytes.substr(start, table.headerStart - start));
    requireOneBlankLine(bytes.substr(table.bodyEnd, end - table.bodyEnd));
    requireReplaced(bytes, *removed, {start, end});
    expected = said;
    expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(index));
    require(statements(*removed) == expected);
}

void checkKeys(std::string_view bytes, const std::vector<Statement>& said,
               const TOMLDocument& document, std::size_t index) {
    const auto& table = document.tables()[index];
    const auto entries = document.entries(table);
    for (std::size_t place = 0; place < std::min<std::size_t>(entries.size(), 4); ++place) {
        const auto removed = TOMLEdit::removeKey(bytes, entries[place]);
        auto expected = said;
        expected[index].erase(expected[index].begin() + static_cast<std::ptrdiff_t>(place) + 1);
        require(statements(removed) == expected);
        require(bytes.size() - removed.size() >= entries[place].lineEnd - entries[place].keyStart);
    }
    for (const std::string_view key : {"k", "new key"}) {
        const auto present =
            std::ranges::find_if(entries, [&](const auto& entry) { return entry.isKey(key); });
        const auto set = TOMLEdit::setKey(bytes, table, entries, key, "9");
        auto expected = said;
        const auto line = spoken({std::array{key}}, "9");
        if (present == entries.end()) {
            requireReplaced(bytes, set.bytes, {table.bodyEnd, table.bodyEnd});
            expected[index].push_back(line);
        } else {
            requireReplaced(bytes, set.bytes, {present->keyStart, present->valueEnd});
            expected[index][static_cast<std::size_t>(present - entries.begin()) + 1] = line;
        }
        require(statements(set.bytes) == expected);
    }
}

/// Adding our table and removing it gives back the bytes.
void checkRoundTrip(std::string_view bytes, std::vector<Statement> said) {
    const auto set = TOMLEdit::setTable(bytes, ours, lines);
    require(set && set->created && set->bytes.starts_with(bytes));
    said.push_back(written(TOMLText::joined(ours)));
    require(statements(set->bytes) == said);
    auto back = TOMLEdit::removeTable(set->bytes, ours).value();
    if (set->appendedTrailingNewline)
        back.resize(back.size() - TOMLText::lineEnding(bytes).size());
    require(back == bytes);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto document = TOMLText::scan(bytes);
    if (!document)
        return 0;
    const auto said = statements(bytes);
    const auto tables = document->tables();
    for (std::size_t index = 0; index < std::min<std::size_t>(tables.size(), 6); ++index) {
        checkKeys(bytes, said, *document, index);
        // The edits of a table go to the first one of its name.
        if (index > 0 && document->table(tables[index].name.name()) == &tables[index])
            checkTable(bytes, said, *document, index);
    }
    if (document->table(ours) == nullptr)
        checkRoundTrip(bytes, said);
    return 0;
}
