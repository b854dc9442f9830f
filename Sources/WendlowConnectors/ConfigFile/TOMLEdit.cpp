#include "ConfigFile/TOMLEdit.h"

#include "ConfigFile/TOMLBytes.h"
#include "Say.h"

#include <algorithm>
#include <fmt/format.h>

namespace wendlow {

std::string TOMLEditError::description() const {
    return say("the table [{}] is not in this file", TOMLText::joined(name));
}

std::string description(const TOMLEditFailure& failure) {
    return std::visit([](const auto& error) { return error.description(); }, failure);
}

namespace TOMLEdit {

namespace {

std::string spliced(std::string_view bytes, ByteRange range, std::string_view replacement) {
    return fmt::format("{}{}{}", bytes.substr(0, range.lower), replacement,
                       bytes.substr(range.upper));
}

std::string written(std::string_view key, std::string_view value) {
    return fmt::format("{} = {}", TOMLText::joined(TOMLName{std::string(key)}), value);
}

/// Where the line of `offset` starts. A byte-order mark is in front of the first line, not on it.
std::size_t lineStart(std::string_view bytes, std::size_t offset) {
    const auto feed = bytes.substr(0, offset).rfind('\n');
    return feed == std::string_view::npos ? std::min(offset, TOMLBytes::textStart(bytes))
                                          : feed + 1;
}

/// What has to be written at `offset` so that what follows it begins a line.
std::string_view lineBreakNeeded(std::string_view bytes, std::size_t offset) {
    return lineStart(bytes, offset) == offset ? std::string_view() : TOMLText::lineEnding(bytes);
}

bool lacksFinalLineFeed(std::string_view bytes) {
    return !bytes.empty() && !bytes.ends_with('\n');
}

bool appendsLineFeed(std::string_view before, std::string_view after) {
    return lacksFinalLineFeed(before) && !lacksFinalLineFeed(after);
}

} // namespace

std::expected<SetTable, TOMLEditFailure> setTable(std::string_view bytes, const TOMLName& name,
                                                  std::span<const Line> lines) {
    const auto document = TOMLText::scan(bytes);
    if (!document)
        return std::unexpected(document.error());
    if (name.empty())
        return std::unexpected(TOMLEditError{.name = name});
    const auto newline = TOMLText::lineEnding(bytes);
    std::string body;
    for (const auto& line : lines)
        body += fmt::format("{}{}", written(line.key, line.value), newline);

    SetTable result;
    if (const auto* const table = document->table(name)) {
        result.bytes = spliced(bytes, {table->bodyStart, table->bodyEnd},
                               fmt::format("{}{}", lineBreakNeeded(bytes, table->bodyStart), body));
    } else {
        result.created = true;
        result.bytes =
            fmt::format("{}{}{}[{}]{}{}", bytes, lacksFinalLineFeed(bytes) ? newline : "",
                        bytes.empty() ? "" : newline, TOMLText::joined(name), newline, body);
    }
    result.appendedTrailingNewline = appendsLineFeed(bytes, result.bytes);
    return result;
}

SetKey setKey(std::string_view bytes, const TOMLTable& table, std::span<const TOMLEntry> entries,
              std::string_view key, std::string_view value) {
    const auto line = written(key, value);
    const auto present =
        std::ranges::find_if(entries, [&](const TOMLEntry& entry) { return entry.isKey(key); });
    if (present != entries.end())
        return {.bytes = spliced(bytes, {present->keyStart, present->valueEnd}, line)};
    auto result = spliced(bytes, {table.bodyEnd, table.bodyEnd},
                          fmt::format("{}{}{}", lineBreakNeeded(bytes, table.bodyEnd), line,
                                      TOMLText::lineEnding(bytes)));
    const bool appended = appendsLineFeed(bytes, result);
    return {std::move(result), appended};
}

std::string removeKey(std::string_view bytes, const TOMLEntry& entry) {
    return spliced(bytes, {lineStart(bytes, entry.keyStart), entry.lineEnd}, "");
}

std::expected<std::string, TOMLEditFailure> removeTable(std::string_view bytes,
                                                        const TOMLName& name) {
    const auto document = TOMLText::scan(bytes);
    if (!document)
        return std::unexpected(document.error());
    const auto* const table = name.empty() ? nullptr : document->table(name);
    if (table == nullptr)
        return std::unexpected(TOMLEditError{.name = name});
    const auto start = startOfOneBlankLine(bytes, table->headerStart);
    const bool wasFirst = start == TOMLBytes::textStart(bytes);
    const auto end = wasFirst ? endOfOneBlankLine(bytes, table->bodyEnd) : table->bodyEnd;
    return spliced(bytes, {start, end}, "");
}

std::size_t startOfOneBlankLine(std::string_view bytes, std::size_t offset) {
    const auto start = lineStart(bytes, offset);
    if (start == TOMLBytes::textStart(bytes))
        return start;
    const auto above = lineStart(bytes, start - 1);
    const bool isBlank =
        bytes.substr(above, start - above).find_first_not_of(" \t\r\n") == std::string_view::npos;
    return isBlank ? above : start;
}

std::size_t endOfOneBlankLine(std::string_view bytes, std::size_t offset) {
    const auto blanksEnd = TOMLBytes::skipBlanks(bytes, offset);
    const auto length = TOMLBytes::lineBreakLength(bytes, blanksEnd);
    return length == 0 ? offset : blanksEnd + length;
}

} // namespace TOMLEdit
} // namespace wendlow
