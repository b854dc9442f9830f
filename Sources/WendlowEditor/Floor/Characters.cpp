#include "Floor/Characters.h"

#include <cstddef>

#include <QString>
#include <QTextBoundaryFinder>

namespace wendlow {

namespace {

/// Where the next code point begins.
std::size_t next(std::string_view text, std::size_t at) {
    do
        ++at;
    while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U);
    return at;
}

/// Whether the code point joins none of its like: all below U+0300, which is written with 0xCC.
bool standsAlone(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]) < 0xCCU;
}

std::int64_t countSlowly(std::string_view text) {
    const QString units = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    QTextBoundaryFinder boundaries(QTextBoundaryFinder::Grapheme, units);
    std::int64_t characters = 0;
    while (boundaries.toNextBoundary() >= 0)
        ++characters;
    return characters;
}

} // namespace

std::int64_t Characters::count(std::string_view utf8) {
    std::int64_t characters = 0;
    std::size_t before = utf8.size(); // the code point behind which `at` stands; none at first
    for (std::size_t at = 0; at < utf8.size();) {
        if (standsAlone(utf8, at)) {
            const bool endsLine = utf8[at] == '\n' && before < utf8.size() && utf8[before] == '\r';
            characters += endsLine ? 0 : 1;
            before = at;
            at = next(utf8, at);
            continue;
        }
        // What combines may do so with what stands before and behind it.
        std::size_t end = at;
        while (end < utf8.size() && !standsAlone(utf8, end))
            end = next(utf8, end);
        const std::size_t start = before < utf8.size() ? before : at;
        const std::size_t stop = end < utf8.size() ? next(utf8, end) : end;
        characters += countSlowly(utf8.substr(start, stop - start));
        // The neighbours are counted by themselves.
        characters -= (start < at ? 1 : 0) + (stop > end ? 1 : 0);
        before = utf8.size();
        at = end;
    }
    return characters;
}

} // namespace wendlow
