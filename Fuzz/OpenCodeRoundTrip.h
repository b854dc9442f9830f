#pragma once

#include "ConfigFile/JSONComments.h"
#include "OpenCode/OpenCodeMCP.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What holds for every configuration with comments.
namespace wendlow::testing {

/// A document's comments without the blanks at their ends, which an edit may take for its own.
inline std::vector<ByteRange> commentRanges(std::string_view bytes, const JSONDocument& document) {
    std::vector<ByteRange> ranges(document.comments().begin(), document.comments().end());
    for (ByteRange& comment : ranges)
        while (JSONText::isWhitespace(bytes[comment.upper - 1]))
            --comment.upper;
    return ranges;
}

/// Their texts, with U+FFFD for what is not UTF-8: so an edit may leave them.
inline std::vector<std::string> commentsOf(std::string_view bytes, const JSONDocument& document) {
    const auto ranges = commentRanges(bytes, document);
    std::vector<std::string> texts;
    texts.reserve(ranges.size());
    for (const ByteRange& comment : ranges)
        texts.push_back(JSONComments::preserved(bytes, ranges, comment, ""));
    return texts;
}

inline void addEmptyContainers(const JSONNode& node, std::vector<ByteRange>& ranges) {
    if ((node.isObject() || node.isArray()) && node.count() == 0)
        ranges.push_back(node.range());
    for (const auto& member : node.members())
        addEmptyContainers(member.value, ranges);
    for (const JSONNode& element : node.elements())
        addEmptyContainers(element, ranges);
}

/// A text without the white space in its empty containers, comments apart: an edit may change that,
/// and nothing else.
inline std::string withoutEmptySpace(std::string_view bytes, const JSONDocument& document) {
    std::vector<ByteRange> empty;
    addEmptyContainers(document.root(), empty);
    const auto isIn = [](const auto& ranges, std::size_t at) {
        return std::ranges::any_of(
            ranges, [at](const ByteRange& range) { return range.lower <= at && at < range.upper; });
    };
    const auto comments = commentRanges(bytes, document);
    std::string result;
    for (std::size_t at = 0; at < bytes.size(); ++at)
        if (!JSONText::isWhitespace(bytes[at]) || !isIn(empty, at) || isIn(comments, at))
            result += bytes[at];
    return result;
}

/// Whether `kept` is `all` without some of them, or with all of them where no `lines` of any went.
inline bool isWithout(const std::vector<std::string>& all, const std::vector<std::string>& kept,
                      std::size_t lines) {
    auto next = kept.begin();
    for (const std::string& text : all)
        if (next != kept.end() && *next == text)
            ++next;
    return next == kept.end() && (kept.size() == all.size()) == (lines == 0);
}

/// Installs the entry into `bytes` and removes it again. A sentence about what went wrong; nothing:
/// all is well, or this file is refused.
inline std::optional<std::string> brokenOpenCodeRoundTrip(const OpenCodeMCP& mcp,
                                                          const std::string& bytes) {
    const auto before = OpenCodeMCP::read(bytes);
    if (!before || mcp.refusalReason(*before, {}))
        return std::nullopt;
    const auto installed = mcp.installed(bytes, *before);
    if (!installed)
        return std::nullopt;
    const std::string after = installed->bytes.value_or(bytes);
    const auto document = OpenCodeMCP::read(after);
    if (!document)
        return "what was installed does not read: " + after;
    if (mcp.refusalReason(*document, {}) || mcp.installed(after, *document)->bytes)
        return "what was installed is not left alone: " + after;
    const auto person = commentsOf(bytes, *before);
    const auto kept = commentsOf(after, *document);
    if (!isWithout(person, kept, installed->commentsReplaced))
        return "a comment was lost without a word: " + after;

    ConnectorReceipt receipt{installed->created, {}, {}, {}};
    const bool isNew = !OpenCodeMCP::node(*before);
    const bool isShell = OpenCodeMCP::isAdoptableShell(*before);
    if (isNew)
        receipt.created.insert(Created::openCodeMCPEntry);
    if (isShell)
        receipt.adopted.insert(Adopted::openCodeMCPEntryShell);
    const auto removed = OpenCodeMCP::removed(after, *document, receipt);
    if (!removed)
        return "what was installed cannot be removed: " + after;
    const std::string rest = removed->bytes.value_or(after);
    const auto last = OpenCodeMCP::read(rest);
    if (!last || OpenCodeMCP::node(*last).has_value() != isShell)
        return "removing leaves something else behind: " + rest;
    if (commentsOf(rest, *last) != kept)
        return "removing loses a comment: " + rest;
    if ((isNew || isShell) && withoutEmptySpace(rest, *last) != withoutEmptySpace(bytes, *before))
        return "what comes back differs: " + rest;
    return std::nullopt;
}

} // namespace wendlow::testing
