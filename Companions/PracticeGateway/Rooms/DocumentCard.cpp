#include "DocumentCard.h"

#include <algorithm>

#include "LocalTime.h"
#include "RawString.h"

namespace wendlow::DocumentCard {

Card whole(const Document& document) {
    Card card{.kind = std::string(rawString(document.kind)),
              .id = document.id,
              .snippet = document.body.empty() ? document.abstract.value_or("") : document.body,
              .why = document.why,
              .when = LocalTime::minute(document.at),
              .filed = document.scope,
              .title = document.title,
              .subagent = document.subagent};
    if (document.kind == DocumentKind::memory)
        card.memoryKind = document.type;
    if (!document.filters.empty())
        card.filters = document.filters;
    return card;
}

Card brief(const Document& document) {
    constexpr std::size_t snippet = 240;
    Card card = whole(document);
    card.snippet = beginning(*card.snippet, snippet);
    return card;
}

std::string beginning(std::string_view text, std::size_t characters) {
    std::size_t end = 0;
    while (end < text.size() && characters > 0) {
        // On over the rest of one character's bytes.
        do
            ++end;
        while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80);
        --characters;
    }
    std::string cut(text.substr(0, end));
    std::ranges::replace(cut, '\n', ' ');
    return end == text.size() ? cut : cut + "…";
}

} // namespace wendlow::DocumentCard
