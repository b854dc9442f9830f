#pragma once

#include "ConnectableApp.h"
#include "KeyedListModel.h"

#include <QtQmlIntegration/qqmlintegration.h>

namespace wendlow {

/// An AI app that can be plugged in.
struct JourneyApp {
    std::string id;
    std::string name;
    std::string detail;
    std::string asset; ///< of its tile, as in Settings
    std::string glyph;
    bool connected = false;
    bool busy = false;
    std::string refusal; ///< why it could not be plugged in or unplugged; mostly empty

    static JourneyApp of(const ConnectedAppRow& row);

    bool operator==(const JourneyApp&) const = default;
};

/// The apps of the Plug in screen for a view. UI thread.
class JourneyAppsList final : public KeyedListModel<JourneyApp> {
    Q_OBJECT
    QML_ANONYMOUS

public:
    enum Role {
        AppIdRole = Qt::UserRole + 1,
        NameRole,
        DetailRole,
        IconAssetRole, ///< empty: draw the glyph
        IconGlyphRole, ///< empty: draw the asset
        ConnectedRole,
        BusyRole,
        RefusalRole, ///< a sentence; empty: there is none
        SpokenRole,  ///< the whole row for a screen reader
    };

    explicit JourneyAppsList(QObject* parent) : KeyedListModel(parent) {}

    void show(std::vector<JourneyApp> apps) { take(std::move(apps)); }

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
};

} // namespace wendlow
