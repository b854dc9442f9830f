#include "ConfigFile/JSONEditMeasures.h"

#include "ConfigFile/JSONText.h"

#include <algorithm>

namespace wendlow::JSONEdit {

std::string_view lineEnding(std::string_view text) {
    return text.find("\r\n") != std::string_view::npos ? "\r\n" : "\n";
}

ByteRange whitespaceRun(std::size_t offset, std::string_view text, std::size_t lowest) {
    auto lower = offset;
    while (lower > lowest && JSONText::isWhitespace(text[lower - 1])) {
        --lower;
    }
    return {lower, offset};
}

std::string_view lineIndent(std::size_t offset, std::string_view text) {
    const auto before = text.substr(0, offset);
    const auto line = before.substr(before.rfind('\n') + 1); // without a line feed: from 0
    return line.substr(0, std::min(line.find_first_not_of(" \t"), line.size()));
}

bool spansLines(ByteRange range, std::string_view text) {
    return text.substr(range.lower, range.size()).find('\n') != std::string_view::npos;
}

std::string_view indentUnit(const JSONNode& root, std::string_view text) {
    std::string_view unit;
    if (const auto members = root.members(); !members.empty()) {
        unit = lineIndent((*members.begin()).keyStart, text);
    } else if (const auto elements = root.elements(); !elements.empty()) {
        unit = lineIndent((*elements.begin()).start(), text);
    }
    return unit.empty() ? "  " : unit;
}

InsertionPrefix insertionPrefix(std::size_t offset, std::string_view text,
                                std::string_view newline) {
    const auto run = whitespaceRun(offset, text);
    InsertionPrefix result;
    result.prefix = text.substr(run.lower, run.size());
    result.style.newline = newline;
    const auto lineFeed = result.prefix.rfind('\n');
    if (lineFeed != std::string_view::npos) {
        result.indent = result.prefix.substr(lineFeed + 1);
        result.style.multiline = true;
    }
    return result;
}

} // namespace wendlow::JSONEdit
