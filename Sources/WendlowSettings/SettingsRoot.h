#pragma once

#include "Pane.h"

#include <QObject>
#include <QString>
#include <QUrl>
#include <QVariantList>
#include <QVariantMap>
#include <QtQmlIntegration/qqmlintegration.h>

namespace wendlow {

/// What the Settings window shows: a sidebar of panes, and the models of the panes, which live as
/// long as the window. An object of the UI thread.
class SettingsRoot final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the root and hands it to the window.")

    /// A list of groups, each a list of maps with `title`, `icon` and `place`, which counts the
    /// panes of all groups from 0.
    Q_PROPERTY(QVariantList groups READ groups CONSTANT)
    Q_PROPERTY(int places READ places CONSTANT)
    /// Which pane is shown.
    Q_PROPERTY(int place READ place NOTIFY selectionChanged)
    /// The face of the pane that is shown, and what is given to it.
    Q_PROPERTY(QUrl face READ face NOTIFY selectionChanged)
    Q_PROPERTY(QVariantMap properties READ properties NOTIFY selectionChanged)
    Q_PROPERTY(QString footer READ footer CONSTANT)

public:
    /// `first` is the pane that it opens on.
    explicit SettingsRoot(Panes::Models models, Pane first = Pane::privacy);

    void select(Pane pane);
    /// Shows the pane at a place; beyond the first and the last, that one.
    Q_INVOKABLE void open(int place);

    /// A person comes to the window, or back to it.
    void refresh();
    /// The window is gone from sight; what is shown there is not left lying open.
    Q_INVOKABLE void leave();
    /// There is a daemon again: what a person sees is asked of it.
    void daemonCame();
    /// Shows this model on its pane in place of the pane's own, for pictures; null: its own.
    void pose(PaneModel* model);
    /// The application has started: each pane does what a start brings with it, seen or not.
    void started(const PaneModel::Log& log);
    /// What is shown waits for no answer.
    bool settled() const;

    Pane selection() const { return m_selection; }
    /// Null for a pane that has none.
    PaneModel* model(Pane pane) const;

    static QVariantList groups();
    static int places();
    int place() const;
    QUrl face() const;
    QVariantMap properties() const;
    static QString footer();

Q_SIGNALS:
    void selectionChanged();
    /// A person who does not see the window is to hear this.
    void said(const QString& words);

private:
    const Panes::Models m_models;
    Pane m_selection;
    PaneModel* m_posed = nullptr;
    bool m_inSight = false; ///< a person is at the window
};

} // namespace wendlow
