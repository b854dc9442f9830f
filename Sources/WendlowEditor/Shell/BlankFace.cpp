#include "Shell/BlankFace.h"

#include "Floor/EditorWords.h"
#include "Floor/FlatScopes.h"
#include "Floor/RowText.h"
#include "Model/EditorRail.h"

namespace wendlow {

QUrl BlankFace::page() const {
    return QUrl(QStringLiteral("qrc:/qt/qml/WendlowEditor/BlankStage.qml"));
}

EditorKind BlankFace::kind() const {
    return m_face == EditorFace::moments ? EditorKind::moment : EditorKind::memory;
}

void BlankFace::show(const FaceView& view) {
    m_counted = view.counted;
    Q_EMIT changed();
}

void BlankFace::reveal(const FoundHit& found, EditorAsk& ask) {
    if (const auto* const rule = std::get_if<SearchDestination::Rule>(&found.hit.destination))
        ask.scopes = {rule->scope};
}

std::optional<std::int64_t> BlankFace::railCount() const {
    switch (m_face) {
    case EditorFace::moments:
        return m_store.pages().momentCount();
    case EditorFace::rules: {
        // Before anything has been read, none is not a number of things.
        const auto& standing = m_store.pages().memoryTypeCounts();
        return m_counted || !standing.empty() ? std::optional(RailCounts::rules(standing))
                                              : std::nullopt;
    }
    case EditorFace::scopes:
        return m_store.scopes().boardRead()
                   ? std::optional(FlatScopes::count(m_store.scopes().rootScope()))
                   : std::nullopt;
    case EditorFace::memory:
    case EditorFace::meetings:
    case EditorFace::mods:
        break;
    }
    return std::nullopt;
}

QString BlankFace::words() const {
    if (const auto error = m_store.storeError())
        return RowText::plain(*error);
    return EditorWords::notWired();
}

} // namespace wendlow

#include "moc_BlankFace.cpp"
