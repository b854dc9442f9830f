#pragma once

#include "Benches/EditorOver.h"

#include <QVariantList>

namespace wendlow {

/// The Editor's stage beside what sets it: which face, over what, how wide. UI thread.
class WorkbenchModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes it and hands it to the window.")
    /// What the stage shows.
    Q_PROPERTY(wendlow::EditorRoot* root READ root NOTIFY changed)
    // Maps with `word` and `picked`.
    Q_PROPERTY(QVariantList answers READ answers NOTIFY changed)
    Q_PROPERTY(QVariantList faces READ faces NOTIFY changed)
    Q_PROPERTY(QVariantList widths READ widths NOTIFY changed)
    /// Of the stage; 0: as wide as there is room.
    Q_PROPERTY(int width READ width NOTIFY changed)

public:
    explicit WorkbenchModel(std::shared_ptr<WendlowClient> client) : m_editors(std::move(client)) {}

    EditorRoot* root();
    QVariantList answers() const;
    QVariantList faces();
    QVariantList widths() const;
    int width() const { return m_width; }

    Q_INVOKABLE void chooseAnswers(const QString& word);
    Q_INVOKABLE void chooseFace(const QString& word);
    Q_INVOKABLE void chooseWidth(const QString& word);
    void stand(EditorOver over, EditorFace face, int width);
    /// There is a daemon again.
    void daemonCame() { m_editors.daemonCame(); }

Q_SIGNALS:
    void changed();

private:
    PosedEditors m_editors;
    EditorOver m_over = EditorOver::powerUser;
    EditorFace m_face = EditorFace::memory;
    int m_width = 0;
};

} // namespace wendlow
