#pragma once

#include "Floor/RowText.h"
#include "KeyedListModel.h"
#include "Search/SearchPage.h"

#include <QtQmlIntegration/qqmlintegration.h>

namespace wendlow {

/// A row of the page, known by its place: from one letter typed to the next nearly all hits are
/// others, and a row that is there takes other words much faster than a new one is made.
struct SearchHitRow {
    std::string id;
    SearchHit hit;
    QString section; ///< the title above it; empty but for the first of a section
    QString titleMarkup;
    QString subtitleMarkup;
    std::string unfolded; ///< all that is known of it; empty but where it is open in its place
    QString unfoldedMarkup;

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
        UnfoldedRole, ///< markup, all lines; empty unless it is open in its place
        UnfoldedTextRole,
    };

    using KeyedListModel::KeyedListModel;

    struct Unfolded {
        std::string id; ///< of a hit; empty for none
        std::string words;
    };
    void show(const SearchSections& sections, const std::string& term, const Unfolded& unfolded);

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

protected:
    QList<int> changedRoles(const SearchHitRow& before, const SearchHitRow& after) const override;
};

} // namespace wendlow
