#include "ConfigFile/JSONComments.h"

#include "ConfigFile/JSONBytes.h"
#include "Say.h"

#include <algorithm>

namespace wendlow::JSONComments {

namespace {

/// Those of `comments` that lie wholly inside `range`. They are in document order and apart from
/// each other, so that both ends can be searched for.
std::span<const ByteRange> inside(std::span<const ByteRange> comments, ByteRange range) {
    const auto first = std::ranges::lower_bound(comments, range.lower, {}, &ByteRange::lower);
    const auto last =
        std::ranges::upper_bound(first, comments.end(), range.upper, {}, &ByteRange::upper);
    return {first, last};
}

std::size_t whitespaceStart(std::string_view bytes, std::size_t offset, std::size_t lowest) {
    while (offset > lowest && JSONText::isWhitespace(bytes[offset - 1])) {
        --offset;
    }
    return offset;
}

void appendRepaired(std::string& result, std::string_view bytes) {
    const char* const end = bytes.data() + bytes.size();
    for (const char* at = bytes.data(); at != end;) {
        const auto sequence = JSONBytes::utf8Sequence(at, end);
        result += sequence.valid ? std::string_view(at, sequence.length) : "\uFFFD";
        at += sequence.length;
    }
}

bool endsLineComment(std::string_view bytes, std::size_t offset) {
    // A carriage return alone does not end a line comment, whatever it ends elsewhere.
    return bytes.substr(offset).starts_with('\n') || bytes.substr(offset).starts_with("\r\n");
}

} // namespace

std::expected<std::optional<ByteRange>, JSONTextError> span(std::string_view bytes,
                                                            std::size_t offset) {
    const auto opening = offset < bytes.size() ? bytes.substr(offset, 2) : std::string_view();
    if (opening == "//") {
        const auto lineFeed = std::min(bytes.find('\n', offset + 2), bytes.size());
        const bool carriageReturn = lineFeed > offset + 2 && bytes[lineFeed - 1] == '\r';
        return ByteRange{offset, carriageReturn ? lineFeed - 1 : lineFeed};
    }
    if (opening == "/*") {
        const auto closing = bytes.find("*/", offset + 2);
        if (closing == std::string_view::npos) {
            return std::unexpected(
                JSONTextError{offset, say("the document ended inside a comment")});
        }
        return ByteRange{offset, closing + 2};
    }
    return std::nullopt;
}

std::size_t triviaEnd(std::string_view bytes, std::size_t offset) {
    for (;;) {
        while (offset < bytes.size() && JSONText::isWhitespace(bytes[offset])) {
            ++offset;
        }
        const auto comment = span(bytes, offset);
        if (!comment || !*comment) {
            return offset;
        }
        offset = (*comment)->upper;
    }
}

std::size_t count(std::span<const ByteRange> comments, ByteRange range) {
    return inside(comments, range).size();
}

std::size_t lineCount(std::string_view bytes, std::span<const ByteRange> comments,
                      ByteRange range) {
    std::size_t lines = 0;
    std::size_t from = range.lower;
    for (const ByteRange& comment : inside(comments, range)) {
        const auto gap = bytes.substr(from, comment.lower - from);
        if (lines == 0 || gap.contains('\n')) {
            ++lines;
        }
        lines += static_cast<std::size_t>(
            std::ranges::count(bytes.substr(comment.lower, comment.size()), '\n'));
        from = comment.upper;
    }
    return lines;
}

std::string preserved(std::string_view bytes, std::span<const ByteRange> comments, ByteRange range,
                      std::string_view newline) {
    std::string result;
    const auto kept = inside(comments, range);
    for (auto comment = kept.begin(); comment != kept.end(); ++comment) {
        const auto from = whitespaceStart(bytes, comment->lower, range.lower);
        appendRepaired(result, bytes.substr(from, comment->upper - from));
        if (bytes[comment->lower + 1] != '/') {
            continue;
        }
        const auto next = std::next(comment);
        bool ended = false;
        if (next == kept.end()) {
            ended = endsLineComment(bytes, range.upper);
        } else {
            const auto gap = whitespaceStart(bytes, next->lower, range.lower);
            ended = bytes.substr(gap, next->lower - gap).find('\n') != std::string_view::npos;
        }
        if (!ended) {
            result += newline;
        }
    }
    return result;
}

} // namespace wendlow::JSONComments
