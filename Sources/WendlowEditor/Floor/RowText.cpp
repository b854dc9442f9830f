#include "Floor/RowText.h"

#include "Floor/TextMatch.h"

#include <string>

namespace wendlow::RowText {

namespace {

constexpr qsizetype longestLine = 600; ///< wider than any stage
constexpr qsizetype longestTip = 1500; ///< more does not fit above a window
constexpr qsizetype longestSearched = 20000;

/// The beginning of a text, no character of it halved.
QString beginning(const QString& text, qsizetype units) {
    if (text.size() <= units)
        return text;
    const bool halved = text.at(units - 1).isHighSurrogate();
    return text.left(halved ? units - 1 : units);
}

bool breaksLine(QChar unit) {
    return unit.category() == QChar::Other_Control || unit == QChar::LineSeparator ||
           unit == QChar::ParagraphSeparator;
}

QString oneLine(const QString& text, qsizetype units) {
    QString cut = beginning(text, units);
    for (QChar& unit : cut)
        if (breaksLine(unit))
            unit = u' ';
    return cut.size() < text.size() ? cut + u'…' : cut;
}

QString escaped(const std::string& text) {
    QString safe = plain(text).toHtmlEscaped();
    safe.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    safe.replace(u'\t', QStringLiteral("    "));
    // Styled text folds runs of blanks and drops line ends.
    safe.replace(QStringLiteral("  "), QStringLiteral("&nbsp;&nbsp;"));
    return safe.replace(u'\n', QStringLiteral("<br>"));
}

QString marked(const QString& text, std::string_view term) {
    QString markup;
    for (const MatchSegment& segment : TextMatch::segments(text.toStdString(), term)) {
        const QString safe = escaped(segment.text);
        markup += segment.matched ? QStringLiteral("<b>") + safe + QStringLiteral("</b>") : safe;
    }
    return markup;
}

} // namespace

QString plain(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString line(std::string_view utf8) {
    return oneLine(plain(utf8), longestLine);
}

QString markedLine(std::string_view utf8, std::string_view term) {
    return marked(line(utf8), term);
}

QString markedText(std::string_view utf8, std::string_view term) {
    const QString text = plain(utf8);
    const QString searched = beginning(text, longestSearched);
    return marked(searched, term) + escaped(text.mid(searched.size()).toStdString());
}

QString tip(std::string_view utf8) {
    return oneLine(plain(utf8), longestTip);
}

} // namespace wendlow::RowText
