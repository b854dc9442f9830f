#include "EditorSnapshots.h"

#include "Live/Waiting.h"
#include "UnimplementedGateway.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <utility>

namespace wendlow {

namespace {

/// A daemon that never gets round to an answer.
class SilentGateway final : public Gateway {
public:
    ~SilentGateway() override { m_waiting.resumeAll(AnswerCase::Failure{"gone"}); }
    QCoro::Task<GatewayResponse> handle(GatewayRequest /*request*/) override {
        co_return co_await m_waiting;
    }

private:
    Waiting<GatewayResponse> m_waiting;
};

/// A daemon whose search index is not ready.
class WarmingGateway final : public Gateway {
public:
    QCoro::Task<GatewayResponse> handle(GatewayRequest request) override {
        if (request.verb() == NotesCase::ScopeBoard::verb)
            co_return AnswerCase::ScopeBoard{};
        co_return AnswerCase::TextBrowse{};
    }
};

int chipOf(FilterBarModel& bar, const QString& key) {
    for (int row = 0; row < bar.chips()->rowCount(); ++row)
        if (bar.chips()->row(row).id == key.toStdString())
            return row;
    return -1;
}

} // namespace

EditorSnapshots::EditorSnapshots(QQuickItem& content, EditorHost& host, EditorWorlds& worlds,
                                 Save save)
    : m_content(content), m_host(host), m_worlds(worlds), m_save(std::move(save)) {}

void EditorSnapshots::take() {
    const EditorWorld before = m_worlds.world();
    takeDaemon(QStringLiteral("editor-pending"), std::make_shared<SilentGateway>());
    takeDaemon(QStringLiteral("editor-warming"), std::make_shared<WarmingGateway>());
    takeDaemon(QStringLiteral("editor-failed"), std::make_shared<UnimplementedGateway>());
    m_worlds.switchWorld(EditorWorld::dayZero);
    m_save(QStringLiteral("editor-empty"));
    m_worlds.switchWorld(EditorWorld::powerUser);
    takeMemories();
    takeSearch();
    root().setFace(EditorFace::mods);
    m_save(QStringLiteral("editor-blank"));
    m_worlds.switchWorld(before);
}

void EditorSnapshots::takeMemories() {
    m_save(QStringLiteral("editor-grid"));
    root().bar()->setPickerOpen(true);
    m_save(QStringLiteral("editor-scopes"));
    root().bar()->setPickerOpen(false);

    root().setOpenType("decision");
    MemoriesModel& list = *root().memories()->list();
    list.toggle(1);
    m_save(QStringLiteral("editor-list"));
    list.toggle(1);
    EditorAsk ask = root().ask();
    ask.term = "backup";
    root().setAsk(ask);
    FilterBarModel& bar = *list.filters();
    const QString key = QStringLiteral("owner");
    if (chipOf(bar, key) >= 0) {
        bar.togglePanel(key);
        bar.toggleValue(0);
        bar.toggleValue(1);
    }
    m_save(QStringLiteral("editor-filtered"));
    ask.term = "zeppelin";
    root().setAsk(ask);
    bar.closePanel();
    m_save(QStringLiteral("editor-nothing-matches"));
    root().setAsk({.term = {}});

    root().setOpenType("ticket");
    m_save(QStringLiteral("editor-grouped"));
    root().setOpenType(std::nullopt);
}

void EditorSnapshots::takeSearch() {
    root().search()->setText(QStringLiteral("backup"));
    m_save(QStringLiteral("editor-search"));
    root().clearSearch();
}

void EditorSnapshots::takeDaemon(const QString& name, std::shared_ptr<Gateway> gateway) {
    auto& worlds = m_daemons.emplace_back(std::make_unique<EditorWorlds>(
        std::make_shared<InProcessClient>(std::move(gateway)), EditorWorld::realData));
    auto& host = m_hosts.emplace_back(std::make_unique<EditorHost>(*worlds));
    host->root()->setOpenType("decision");
    m_content.setProperty("host", QVariant::fromValue(host.get()));
    // That something takes long is shown only once it does.
    constexpr int noticeable = 400;
    for (const QDeadlineTimer limit(noticeable); !limit.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    m_save(name);
    m_content.setProperty("host", QVariant::fromValue(&m_host));
}

} // namespace wendlow
