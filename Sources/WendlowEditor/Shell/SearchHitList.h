#pragma once

#include "KeyedListModel.h"
#include "Search/SearchPage.h"
#include "Shell/RowText.h"

#include <QtQmlIntegration/qqmlintegration.h>

namespace wendlow {

struct SearchHitRow {
    std::string id;
    SearchHit hit;
    std::string section; ///< the title above it; empty but for the first of a section
    std::string term;    ///< what its words are marked for

    bool operator==(const SearchHitRow&) const = default;
};

/// The hits of the search page in the order of its keys.
class SearchHitList : public KeyedListModel<SearchHitRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The search makes it.")

public:
    enum Role {
        SectionRole = Qt::UserRole + 1, ///< empty but for the first hit of a section
        TitleRole,                      ///< plain, one line
        TitleMarkupRole,
        SubtitleRole, ///< plain, one line; may be empty
        SubtitleMarkupRole,
        TipRole,
        SymbolRole,
    };

    using KeyedListModel::KeyedListModel;

    void show(const SearchSections& sections, const std::string& term);

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
};

} // namespace wendlow
