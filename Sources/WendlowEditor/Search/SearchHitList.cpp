#include "Search/SearchHitList.h"

#include <string>

namespace wendlow {

void SearchHitList::show(const SearchSections& sections, const std::string& term,
                         const Unfolded& unfolded) {
    std::vector<SearchHitRow> rows;
    for (const SearchSection& section : sections)
        for (const SearchHit& hit : section.hits)
            rows.push_back({.id = std::to_string(rows.size()),
                            .hit = hit,
                            .section = &hit == &section.hits.front() ? RowText::line(section.title)
                                                                     : QString(),
                            .titleMarkup = RowText::markedLine(hit.title, term),
                            .subtitleMarkup = RowText::markedLine(hit.subtitle, term),
                            .unfolded = hit.id == unfolded.id ? unfolded.words : std::string(),
                            .unfoldedMarkup = hit.id == unfolded.id
                                                  ? RowText::markedText(unfolded.words, term)
                                                  : QString()});
    take(std::move(rows));
}

QVariant SearchHitList::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const SearchHitRow& here = row(index.row());
    switch (role) {
    case SectionRole:
        return here.section;
    case Qt::DisplayRole:
    case TitleRole:
        return RowText::line(here.hit.title);
    case TitleMarkupRole:
        return here.titleMarkup;
    case SubtitleRole:
        return RowText::line(here.hit.subtitle);
    case SubtitleMarkupRole:
        return here.subtitleMarkup;
    case TipRole:
        return RowText::tip(here.hit.title);
    case SymbolRole:
        return RowText::plain(here.hit.symbol);
    case UnfoldedRole:
        return here.unfoldedMarkup;
    case UnfoldedTextRole:
        return RowText::plain(here.unfolded);
    default:
        return {};
    }
}

QList<int> SearchHitList::changedRoles(const SearchHitRow& before,
                                       const SearchHitRow& after) const {
    QList<int> roles;
    if (before.hit.title != after.hit.title)
        roles << Qt::DisplayRole << TitleRole << TipRole;
    if (before.titleMarkup != after.titleMarkup)
        roles << TitleMarkupRole;
    if (before.hit.subtitle != after.hit.subtitle)
        roles << SubtitleRole;
    if (before.subtitleMarkup != after.subtitleMarkup)
        roles << SubtitleMarkupRole;
    if (before.hit.symbol != after.hit.symbol)
        roles << SymbolRole;
    if (before.unfoldedMarkup != after.unfoldedMarkup)
        roles << UnfoldedRole << UnfoldedTextRole;
    if (before.section != after.section)
        roles << SectionRole;
    // To none all would be counted, and a hit may change in what nothing shows.
    return roles.empty() ? QList<int>{TitleRole} : roles;
}

QHash<int, QByteArray> SearchHitList::roleNames() const {
    return {{SectionRole, "section"},
            {TitleRole, "title"},
            {TitleMarkupRole, "titleMarkup"},
            {SubtitleRole, "subtitle"},
            {SubtitleMarkupRole, "subtitleMarkup"},
            {TipRole, "tip"},
            {SymbolRole, "symbol"},
            {UnfoldedRole, "unfolded"},
            {UnfoldedTextRole, "unfoldedText"}};
}

} // namespace wendlow

#include "moc_SearchHitList.cpp"
