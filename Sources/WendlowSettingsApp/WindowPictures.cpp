#include "WindowPictures.h"

#include "EditorSnapshots.h"
#include "Pane.h"
#include "WindowModels.h"

#include <QQuickItem>

namespace wendlow::WindowPictures {

void takeSettings(const PictureSession& session, WindowModels& models) {
    SettingsRoot& root = models.settings();
    const Pane first = root.selection();
    for (const PaneDescription& pane : Panes::all()) {
        const QString name = QStringLiteral("settings-") + QString::fromUtf8(pane.id);
        root.select(pane.pane);
        session.save(name, PictureSession::Focus::away);
        if (pane.takePictures)
            pane.takePictures({.model = root.model(pane.pane),
                               .save =
                                   [&](const QString& state) {
                                       session.save(name + u'-' + state,
                                                    PictureSession::Focus::away);
                                   },
                               .pose = [&](PaneModel* posed) { root.pose(posed); }});
    }
    root.select(first);
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
    if (session.sizeIsGiven)
        return;
    const QSize own = session.window.size();
    for (const QSize size : {QSize(700, 560), QSize(1600, 1000)}) {
        session.window.resize(size);
        snapshots.takeAtWidth(QStringLiteral("-%1").arg(size.width()));
    }
    session.window.resize(own);
}

} // namespace wendlow::WindowPictures
