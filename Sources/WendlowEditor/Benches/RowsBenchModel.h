#pragma once

#include "Benches/EditorOver.h"

#include <QVariantList>

#include <map>
#include <memory>
#include <vector>

namespace wendlow {

/// One kind of rows, on the page that they stand on. It has an Editor of its own, for each shows
/// one face at a time, and a question about one would overtake that about another. UI thread.
class RowsBenchKind final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The bench makes it.")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(wendlow::EditorRoot* root READ root CONSTANT)

public:
    enum class Kind { memories, work, hits, meetings, moments, rules, mods, scopes };

    RowsBenchKind(Kind kind, EditorOver over, const std::shared_ptr<WendlowClient>& client);

    QString title() const;
    /// Made on first need, with what it shows open.
    EditorRoot* root();
    void daemonCame();

private:
    void open(EditorRoot& root) const;

    const Kind m_kind;
    const EditorOver m_over;
    const std::shared_ptr<WendlowClient> m_client;
    std::unique_ptr<PosedEditor> m_editor;
};

/// Rows of every kind, from the daemon's database or from a made-up world. UI thread.
class RowsBenchModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes it and hands it to the window.")
    /// Where the rows are from: maps with `word` and `picked`.
    Q_PROPERTY(QVariantList sources READ sources NOTIFY changed)
    /// A `RowsBenchKind` each.
    Q_PROPERTY(QVariantList kinds READ kinds NOTIFY changed)

public:
    /// Begins at the database.
    explicit RowsBenchModel(std::shared_ptr<WendlowClient> client);
    ~RowsBenchModel() override;

    QVariantList sources() const;
    QVariantList kinds() const;
    Q_INVOKABLE void chooseSource(const QString& word);
    void stand(EditorOver over);
    /// There is a daemon again.
    void daemonCame();

Q_SIGNALS:
    void changed();

private:
    using Kinds = std::vector<std::unique_ptr<RowsBenchKind>>;

    const std::shared_ptr<WendlowClient> m_client;
    EditorOver m_over = EditorOver::realData;
    std::map<EditorOver, Kinds> m_kinds; ///< those of the others stay as they were left
};

} // namespace wendlow
