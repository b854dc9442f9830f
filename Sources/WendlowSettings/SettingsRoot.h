#pragma once

#include "ConnectedAppsModel.h"
#include "Pane.h"

#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQmlIntegration/qqmlintegration.h>

#include <memory>

namespace wendlow {

/// What the Settings window shows: a sidebar of panes, and the models of the panes, which live as
/// long as the window. An object of the UI thread.
class SettingsRoot final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the root and hands it to the window.")

    /// A list of groups, each a list of maps with `title` and `icon`.
    Q_PROPERTY(QVariantList groups READ groups CONSTANT)
    /// The title of the pane that is shown.
    Q_PROPERTY(QString selection READ selectionTitle NOTIFY selectionChanged)
    Q_PROPERTY(wendlow::ConnectedAppsModel* connected READ connected CONSTANT)
    Q_PROPERTY(QString footer READ footer CONSTANT)

public:
    explicit SettingsRoot(std::unique_ptr<ConnectedAppsModel> connected);

    /// Shows the pane with this title; any other text changes nothing.
    Q_INVOKABLE void select(const QString& title);

    Pane selection() const { return m_selection; }
    QString selectionTitle() const;
    ConnectedAppsModel* connected() const { return m_connected.get(); }
    static QVariantList groups();
    static QString footer();

Q_SIGNALS:
    void selectionChanged();

private:
    const std::unique_ptr<ConnectedAppsModel> m_connected;
    /// The other panes have nothing to show yet, so a person starts where something can be done;
    /// once General has contents, it is General again.
    Pane m_selection = Pane::connected;
};

} // namespace wendlow
