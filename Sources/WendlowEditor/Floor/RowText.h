#pragma once

#include <QString>

#include <string_view>

namespace wendlow {

/// What a row shows of a text that anybody may have written. The markup is Qt's styled text, in
/// which everything of the text itself is escaped.
namespace RowText {

QString plain(std::string_view utf8);

/// One line: line ends and other control characters become blanks, and what no window is wide
/// enough for is cut off, so that a text of any length costs the same to draw.
QString line(std::string_view utf8);
/// The same, the words of `term` in bold.
QString markedLine(std::string_view utf8, std::string_view term);
/// The whole text with its lines and its indents, the words of `term` in bold. Only the beginning
/// of a very long text is searched for them.
QString markedText(std::string_view utf8, std::string_view term);

/// The words of a tooltip: the text where `line` would cut or elide it.
QString tip(std::string_view utf8);

} // namespace RowText

} // namespace wendlow
