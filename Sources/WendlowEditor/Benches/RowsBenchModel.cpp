#include "RowsBenchModel.h"

#include "BenchChoice.h"
#include "Memories/MemoryFaceModel.h"

#include <QQmlEngine>

#include <array>

namespace wendlow {

namespace {

using Kind = RowsBenchKind::Kind;

constexpr std::array sourcesThereAre{EditorOver::realData, EditorOver::powerUser,
                                     EditorOver::someData};

constexpr std::array kindsThereAre{Kind::memories, Kind::work,  Kind::hits, Kind::meetings,
                                   Kind::moments,  Kind::rules, Kind::mods, Kind::scopes};

void openType(EditorRoot& root, const char* type) {
    static_cast<MemoryFaceModel&>(root.model(EditorFace::memory)).open(type);
}

} // namespace

RowsBenchKind::RowsBenchKind(Kind kind, EditorOver over,
                             const std::shared_ptr<WendlowClient>& client)
    : m_kind(kind), m_over(over), m_client(client) {
    QQmlEngine::setObjectOwnership(this, QQmlEngine::CppOwnership);
}

QString RowsBenchKind::title() const {
    switch (m_kind) {
    case Kind::memories:
        return QStringLiteral("Memories of one type");
    case Kind::work:
        return QStringLiteral("Work by its status");
    case Kind::hits:
        return QStringLiteral("What a search found");
    case Kind::meetings:
        return QStringLiteral("Meetings");
    case Kind::moments:
        return QStringLiteral("Moments");
    case Kind::rules:
        return QStringLiteral("Rules");
    case Kind::mods:
        return QStringLiteral("Mods");
    case Kind::scopes:
        return QStringLiteral("Scopes");
    }
    return {};
}

EditorRoot* RowsBenchKind::root() {
    if (!m_editor) {
        m_editor = std::make_unique<PosedEditor>(m_over, m_client);
        open(*m_editor->root());
    }
    return m_editor->root();
}

void RowsBenchKind::open(EditorRoot& root) const {
    switch (m_kind) {
    case Kind::memories:
        return openType(root, "decision");
    case Kind::work:
        return openType(root, "ticket");
    case Kind::hits:
        return root.search()->setText(QStringLiteral("backup"));
    case Kind::meetings:
        return root.setFace(EditorFace::meetings);
    case Kind::moments:
        return root.setFace(EditorFace::moments);
    case Kind::rules:
        return root.setFace(EditorFace::rules);
    case Kind::mods:
        return root.setFace(EditorFace::mods);
    case Kind::scopes:
        return root.setFace(EditorFace::scopes);
    }
}

void RowsBenchKind::daemonCame() {
    if (m_editor && m_over == EditorOver::realData)
        m_editor->worlds->daemonCame();
}

RowsBenchModel::RowsBenchModel(std::shared_ptr<WendlowClient> client)
    : m_client(std::move(client)) {
    stand(m_over);
}

RowsBenchModel::~RowsBenchModel() = default;

QVariantList RowsBenchModel::sources() const {
    return benchChoices(sourcesThereAre, overLabel, m_over);
}

QVariantList RowsBenchModel::kinds() const {
    QVariantList list;
    for (const auto& kind : m_kinds.at(m_over))
        list.append(QVariant::fromValue(kind.get()));
    return list;
}

void RowsBenchModel::chooseSource(const QString& word) {
    stand(benchChoice(sourcesThereAre, overLabel, word));
}

void RowsBenchModel::stand(EditorOver over) {
    m_over = over;
    if (Kinds& kinds = m_kinds[over]; kinds.empty())
        for (const Kind kind : kindsThereAre)
            kinds.push_back(std::make_unique<RowsBenchKind>(kind, over, m_client));
    Q_EMIT changed();
}

void RowsBenchModel::daemonCame() {
    for (const auto& kind : m_kinds.at(EditorOver::realData))
        kind->daemonCame();
}

} // namespace wendlow

#include "moc_RowsBenchModel.cpp"
