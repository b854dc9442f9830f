#include "Shell/SearchHitList.h"

namespace wendlow {

void SearchHitList::show(const SearchSections& sections, const std::string& term) {
    std::vector<SearchHitRow> rows;
    for (const SearchSection& section : sections)
        for (const SearchHit& hit : section.hits)
            rows.push_back({.id = hit.id,
                            .hit = hit,
                            .section = &hit == &section.hits.front() ? section.title : "",
                            .term = term});
    take(std::move(rows));
}

QVariant SearchHitList::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const SearchHitRow& here = row(index.row());
    switch (role) {
    case SectionRole:
        return RowText::line(here.section);
    case Qt::DisplayRole:
    case TitleRole:
        return RowText::line(here.hit.title);
    case TitleMarkupRole:
        return RowText::markedLine(here.hit.title, here.term);
    case SubtitleRole:
        return RowText::line(here.hit.subtitle);
    case SubtitleMarkupRole:
        return RowText::markedLine(here.hit.subtitle, here.term);
    case TipRole:
        return RowText::tip(here.hit.title);
    case SymbolRole:
        return RowText::plain(here.hit.symbol);
    default:
        return {};
    }
}

QHash<int, QByteArray> SearchHitList::roleNames() const {
    return {{SectionRole, "section"},
            {TitleRole, "title"},
            {TitleMarkupRole, "titleMarkup"},
            {SubtitleRole, "subtitle"},
            {SubtitleMarkupRole, "subtitleMarkup"},
            {TipRole, "tip"},
            {SymbolRole, "symbol"}};
}

} // namespace wendlow
