#pragma once

#include "ConfigFile/ByteRange.h"
#include "ConfigFile/JSONLiteral.h"
#include "ConfigFile/JSONNode.h"

#include <cstddef>
#include <string_view>

/// The small measures that edits take of a document. All are pure; a text that they give is a view
/// into `text`, or a constant.
namespace wendlow::JSONEdit {

/// "\r\n" if one CR LF occurs anywhere in `text`, otherwise "\n".
std::string_view lineEnding(std::string_view text);

/// The longest run of white space that ends at `offset`, reaching no further back than `lowest`.
ByteRange whitespaceRun(std::size_t offset, std::string_view text, std::size_t lowest = 0);

/// The spaces and tabs that begin the line of `offset`, going no further than `offset`. Only a line
/// feed begins a line.
std::string_view lineIndent(std::size_t offset, std::string_view text);

/// Whether a line feed stands in `range`.
bool spansLines(ByteRange range, std::string_view text);

/// One step of indentation in this file, learnt from the first thing inside the root; two spaces
/// where that teaches nothing.
std::string_view indentUnit(const JSONNode& root, std::string_view text);

/// How a new sibling is set off that is to follow one which starts at some offset.
struct InsertionPrefix {
    std::string_view prefix; ///< white space to copy in front of it
    std::string_view indent; ///< indentation of its line; empty on a single line
    RenderStyle style;
};
InsertionPrefix insertionPrefix(std::size_t offset, std::string_view text,
                                std::string_view newline);

} // namespace wendlow::JSONEdit
