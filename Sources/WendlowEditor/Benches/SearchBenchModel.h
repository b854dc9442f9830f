#pragma once

#include "Benches/EditorOver.h"

#include <QVariantList>

namespace wendlow {

/// The search page over made-up memories, to be typed into. UI thread.
class SearchBenchModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes it and hands it to the window.")
    Q_PROPERTY(wendlow::EditorRoot* root READ root NOTIFY changed)
    /// What is searched: maps with `word` and `picked`.
    Q_PROPERTY(QVariantList answers READ answers NOTIFY changed)
    /// Words that lead to one state each.
    Q_PROPERTY(QStringList examples READ examples CONSTANT)

public:
    explicit SearchBenchModel(std::shared_ptr<WendlowClient> client)
        : m_editors(std::move(client)) {}

    EditorRoot* root() { return m_editors.over(m_over); }
    QVariantList answers() const;
    QStringList examples() const;

    /// What is typed stays, and is searched for there.
    Q_INVOKABLE void chooseAnswers(const QString& word);
    /// There is a daemon again.
    void daemonCame() { m_editors.daemonCame(); }

Q_SIGNALS:
    void changed();

private:
    PosedEditors m_editors;
    EditorOver m_over = EditorOver::powerUser;
};

} // namespace wendlow
