#include "EditorSnapshots.h"

#include "Store/Waiting.h"
#include "UnimplementedGateway.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QQuickWindow>

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
    takeDaemon("pending", std::make_shared<SilentGateway>());
    takeDaemon("warming", std::make_shared<WarmingGateway>());
    takeDaemon("failed", std::make_shared<UnimplementedGateway>());
    m_worlds.switchWorld(EditorWorld::dayZero);
    save("empty");
    m_worlds.switchWorld(EditorWorld::powerUser);
    takeMemories();
    takeSearch();
    root().setFace(EditorFace::mods);
    save("blank");
    m_worlds.switchWorld(before);
}

void EditorSnapshots::takeAtWidth(const QString& suffix) {
    const EditorWorld before = m_worlds.world();
    m_suffix = suffix;
    m_worlds.switchWorld(EditorWorld::powerUser);
    save("grid");
    takeTypes();
    takeSearch();
    m_worlds.switchWorld(before);
    m_suffix.clear();
}

void EditorSnapshots::save(const char* state, Focus focus) {
    m_save(QStringLiteral("editor-") + QLatin1String(state) + m_suffix, focus);
}

void EditorSnapshots::takeMemories() {
    save("grid");
    root().bar()->setPickerOpen(true);
    save("scopes");
    root().bar()->setPickerOpen(false);
    EditorAsk ask = root().ask();
    ask.scopes = {"/work/harbour"};
    ask.term = "mooring";
    root().setAsk(ask);
    save("narrowed");
    root().setAsk({.term = {}});
    takeTypes();
}

void EditorSnapshots::takeTypes() {
    RailModel& rail = *root().rail();
    for (int row = 0; row < rail.rowCount(); ++row)
        if (rail.row(row).kind == RailRow::Kind::more)
            rail.activate(row);
    root().setOpenType("decision");
    MemoriesModel& list = *root().memories()->list();
    list.toggle(1);
    save("list");
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
    save("filtered");
    ask.term = "zeppelin";
    root().setAsk(ask);
    bar.closePanel();
    save("nothing-matches");
    root().setAsk({.term = {}});

    root().setOpenType("ticket");
    save("grouped");
    root().setOpenType(std::nullopt);
}

void EditorSnapshots::takeSearch() {
    type(QStringLiteral("backup"));
    save("search", Focus::kept);
    root().clearSearch();
}

/// As a person does, into the search field: the first stop of the focus in the window's content.
void EditorSnapshots::type(const QString& text) {
    m_content.nextItemInFocusChain()->forceActiveFocus();
    for (const QChar letter : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, letter);
        QCoreApplication::sendEvent(m_content.window(), &press);
    }
}

void EditorSnapshots::takeDaemon(const char* state, std::shared_ptr<Gateway> gateway) {
    auto& worlds = m_daemons.emplace_back(std::make_unique<EditorWorlds>(
        std::make_shared<InProcessClient>(std::move(gateway)), EditorWorld::realData));
    auto& host = m_hosts.emplace_back(std::make_unique<EditorHost>(*worlds));
    host->root()->setOpenType("decision");
    m_content.setProperty("host", QVariant::fromValue(host.get()));
    // That something takes long is shown only once it does.
    constexpr int noticeable = 400;
    for (const QDeadlineTimer limit(noticeable); !limit.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    save(state);
    m_content.setProperty("host", QVariant::fromValue(&m_host));
}

} // namespace wendlow
