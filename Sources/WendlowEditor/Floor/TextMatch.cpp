#include "Floor/TextMatch.h"

#include "Ranking/EditorText.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include <QString>
#include <QTextBoundaryFinder>

namespace wendlow {

namespace {

QString qString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Whether each byte is a character of its own, as nearly all are: "\r\n" is one of two.
bool isPlain(std::string_view text) {
    return std::ranges::all_of(
        text, [](char byte) { return static_cast<unsigned char>(byte) < 0x80 && byte != '\r'; });
}

constexpr char lower(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

bool isMark(QChar unit) {
    return unit.category() == QChar::Mark_NonSpacing;
}

/// A text without case and accents that knows which character of the text each unit comes from.
class FoldedText {
public:
    using Range = std::pair<qsizetype, qsizetype>; ///< of characters; the end is not in it

    explicit FoldedText(std::string_view text) : m_text(qString(text)) {
        if (isPlain(text)) {
            m_folded = m_text.toLower();
            m_starts.resize(text.size() + 1);
            std::iota(m_starts.begin(), m_starts.end(), 0);
            m_character.assign(m_starts.begin(), m_starts.end() - 1);
            return;
        }
        QTextBoundaryFinder boundaries(QTextBoundaryFinder::Grapheme, m_text);
        for (qsizetype start = 0, end = 0; (end = boundaries.toNextBoundary()) >= 0; start = end) {
            const QString character = m_text.mid(start, end - start);
            for (const QChar unit :
                 character.toCaseFolded().normalized(QString::NormalizationForm_D))
                if (!isMark(unit)) {
                    m_folded.append(unit);
                    m_character.push_back(size());
                }
            m_starts.push_back(start);
        }
        m_starts.push_back(m_text.size());
    }

    qsizetype size() const { return static_cast<qsizetype>(m_starts.size()); }
    qsizetype characters() const { return size() - 1; }

    /// The first place of a word at or behind a unit, which moves behind it.
    std::optional<Range> find(const QString& word, qsizetype& from) const {
        const auto at = m_folded.indexOf(word, from);
        if (at < 0)
            return std::nullopt;
        from = at + word.size();
        return Range(character(at), character(from - 1) + 1);
    }
    QString cut(Range range) const {
        const auto start = m_starts[static_cast<std::size_t>(range.first)];
        return m_text.mid(start, m_starts[static_cast<std::size_t>(range.second)] - start);
    }

private:
    qsizetype character(qsizetype unit) const {
        return m_character[static_cast<std::size_t>(unit)];
    }

    QString m_text;
    QString m_folded;
    std::vector<qsizetype> m_starts;    ///< of characters, and the end
    std::vector<qsizetype> m_character; ///< of each folded unit
};

std::vector<QString> words(std::string_view term) {
    std::vector<QString> found;
    for (const std::string& token : EditorText::tokenize(term))
        if (token.size() >= 2)
            found.push_back(qString(token));
    return found;
}

} // namespace

std::optional<std::string> TextMatch::passage(std::string_view term, std::string_view text,
                                              int radius) {
    const auto looked = words(term);
    if (text.empty() || looked.empty())
        return std::nullopt;
    const FoldedText folded(text);
    for (const QString& word : looked) {
        qsizetype from = 0;
        const auto match = folded.find(word, from);
        if (!match)
            continue;
        const auto start = std::max<qsizetype>(match->first - radius, 0);
        const auto end = std::min(match->second + radius, folded.characters());
        QString line = folded.cut({start, end});
        line.replace(QStringLiteral("\r\n"), QStringLiteral(" ")).replace(u'\n', u' ');
        line = line.trimmed();
        if (start > 0)
            line.prepend(u'…');
        if (end < folded.characters())
            line.append(u'…');
        return line.toStdString();
    }
    return std::nullopt;
}

std::vector<MatchSegment> TextMatch::segments(std::string_view text, std::string_view term) {
    if (text.empty())
        return {};
    const FoldedText folded(text);
    std::vector<FoldedText::Range> matches;
    for (const QString& word : words(term))
        for (qsizetype from = 0; const auto match = folded.find(word, from);)
            matches.push_back(*match);
    std::ranges::sort(matches);

    std::vector<MatchSegment> segments;
    qsizetype shown = 0;
    const auto add = [&](qsizetype end, bool matched) {
        if (end > shown)
            segments.push_back(
                {.text = folded.cut({shown, end}).toStdString(), .matched = matched});
        shown = std::max(shown, end);
    };
    for (auto match = matches.begin(); match != matches.end();) {
        add(match->first, false);
        qsizetype end = match->second;
        // Those that touch or overlap are one.
        for (++match; match != matches.end() && match->first <= end; ++match)
            end = std::max(end, match->second);
        add(end, true);
    }
    add(folded.characters(), false);
    return segments;
}

bool TextMatch::contains(std::string_view text, std::string_view term) {
    if (isPlain(text) && isPlain(term))
        return !std::ranges::search(text, term, {}, lower, lower).empty() || term.empty();
    constexpr auto form = QString::NormalizationForm_C;
    return qString(text).normalized(form).contains(qString(term).normalized(form),
                                                   Qt::CaseInsensitive);
}

} // namespace wendlow
