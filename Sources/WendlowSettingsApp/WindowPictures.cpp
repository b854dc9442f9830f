#include "WindowPictures.h"

#include "EditorSnapshots.h"
#include "JourneySnapshots.h"
#include "Pane.h"
#include "StatsSnapshots.h"
#include "ThemeSource.h"
#include "WindowModels.h"

#include <QQuickItem>

#include <utility>

namespace wendlow::WindowPictures {

namespace {

/// What `take` takes, with words of these scales; its argument ends the names.
void withLargerWords(const PictureSession& session,
                     const std::function<void(const QString& suffix)>& take) {
    if (session.isAsGiven)
        return;
    for (const int percent : {125, 150}) {
        session.looks.setTextScale(percent / 100.0);
        take(QStringLiteral("-text%1").arg(percent));
    }
    session.looks.setTextScale(1);
}

using Save = std::function<void(const QString& name)>;

/// The pane as it opens, and each of its states.
void takePane(SettingsRoot& root, const PaneDescription& pane, const Save& save) {
    const QString name = QStringLiteral("settings-") + QString::fromUtf8(pane.id);
    root.select(pane.pane);
    save(name);
    if (pane.takePictures)
        pane.takePictures({.model = root.model(pane.pane),
                           .save = [&](const QString& state) { save(name + u'-' + state); },
                           .pose = [&](PaneModel* posed) { root.pose(posed); }});
}

} // namespace

void takeSettings(const PictureSession& session, WindowModels& models) {
    SettingsRoot& root = models.settings();
    const Pane first = root.selection();
    for (const PaneDescription& pane : Panes::all())
        takePane(root, pane,
                 [&](const QString& name) { session.save(name, PictureSession::Focus::away); });
    withLargerWords(session, [&](const QString& suffix) {
        for (const PaneDescription& pane : Panes::all()) {
            // The first of its states stands for the others.
            int number = pane.takePictures ? 0 : 1;
            takePane(root, pane, [&](const QString& name) {
                if (number++ == 1)
                    session.save(name + suffix, PictureSession::Focus::away);
            });
        }
    });
    root.select(first);
}

void takeStats(const PictureSession& session, WindowModels& models) {
    auto* const content = session.window.property("content").value<QQuickItem*>();
    StatsSnapshots snapshots(*content, models.stats(), [&](const QString& name) {
        session.save(name, PictureSession::Focus::away);
    });
    snapshots.take();
    withLargerWords(session, [&](const QString& suffix) { snapshots.takeAtSize(suffix); });
    if (session.isAsGiven)
        return;
    const QSize own = session.window.size();
    for (const QSize size : {QSize(560, 420), QSize(560, 1280), QSize(1600, 1000)}) {
        session.window.resize(size);
        snapshots.takeAtSize(QStringLiteral("-%1x%2").arg(size.width()).arg(size.height()));
    }
    session.window.resize(own);
}

void takeEditor(const PictureSession& session, WindowModels& models) {
    auto* const content = session.window.property("content").value<QQuickItem*>();
    EditorSnapshots snapshots(*content, models.editor(), models.worlds(),
                              [&](const QString& name, EditorSnapshots::Focus focus) {
                                  session.save(name, focus == EditorSnapshots::Focus::kept
                                                         ? PictureSession::Focus::kept
                                                         : PictureSession::Focus::away);
                              });
    snapshots.take();
    withLargerWords(session, [&](const QString& suffix) { snapshots.takeSome(suffix); });
    if (session.isAsGiven)
        return;
    const QSize own = session.window.size();
    for (const QSize size : {QSize(700, 560), QSize(1600, 1000)}) {
        session.window.resize(size);
        snapshots.takeSome(QStringLiteral("-%1").arg(size.width()));
    }
    session.window.resize(own);
}

void takeJourney(const PictureSession& session, WindowModels& models) {
    auto* const content = session.window.property("content").value<QQuickItem*>();
    JourneySnapshots snapshots(*content, models.journey(), [&](const QString& name) {
        session.save(name, PictureSession::Focus::away);
    });
    snapshots.take();
    withLargerWords(session, [&](const QString& suffix) { snapshots.takeSome(suffix); });
}

} // namespace wendlow::WindowPictures
