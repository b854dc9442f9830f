#pragma once

#include "ConfigFile/ByteRange.h"
#include "ConfigFile/JSONText.h"

#include <cstddef>
#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace wendlow::JSONComments {

/// The comment that begins exactly at `offset`, or nothing when none does. A line comment ends
/// before its line break. Fails on a block comment that never closes.
std::expected<std::optional<ByteRange>, JSONTextError> span(std::string_view bytes,
                                                            std::size_t offset);

/// Past the white space and the comments that begin at `offset`. A comment that never closes is no
/// comment.
std::size_t triviaEnd(std::string_view bytes, std::size_t offset);

/// How many of `comments` (in document order) lie wholly inside `range`.
std::size_t count(std::span<const ByteRange> comments, ByteRange range);
/// How many lines of `bytes` those comments stand on.
std::size_t lineCount(std::string_view bytes, std::span<const ByteRange> comments, ByteRange range);

/// What has to be put back when `range` is cut out of `bytes`, so that no comment is lost: each
/// comment inside with the white space before it, and `newline` after a line comment that would
/// otherwise swallow what follows. Empty when no comment lies inside. Bytes that are not UTF-8 come
/// back as U+FFFD.
std::string preserved(std::string_view bytes, std::span<const ByteRange> comments, ByteRange range,
                      std::string_view newline);

} // namespace wendlow::JSONComments
