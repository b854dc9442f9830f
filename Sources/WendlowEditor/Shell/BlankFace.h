#pragma once

#include "Floor/FaceModel.h"
#include "Store/EditorStore.h"

namespace wendlow {

/// Stands for a face that is still to come: a sentence on the stage, and its count in the rail. UI
/// thread; the store must outlive it.
class BlankFace final : public wendlow::FaceModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The root of the window makes it.")
    Q_PROPERTY(QString words READ words NOTIFY changed)
    /// Whether `words` tells of a store that has given up.
    Q_PROPERTY(bool gaveUp READ gaveUp NOTIFY changed)

public:
    BlankFace(EditorFace face, EditorStore& store) : m_face(face), m_store(store) {}

    EditorFace face() const override { return m_face; }
    QUrl page() const override;
    EditorKind kind() const override;
    bool sharesScopes() const override { return m_face == EditorFace::moments; }
    bool showsScopeChip() const override { return m_face != EditorFace::scopes; }
    bool opensHits() const override { return false; }
    void show(const FaceView& view) override;
    void reveal(const FoundHit& found, EditorAsk& ask) override;
    std::optional<std::int64_t> railCount() const override;

    QString words() const;
    bool gaveUp() const { return m_store.storeError().has_value(); }

Q_SIGNALS:
    void changed();

private:
    const EditorFace m_face;
    EditorStore& m_store;
    bool m_counted = false;
};

} // namespace wendlow
