#include "ConnectedAppsModel.h"

#include "ClaudeChat/ClaudeDesktop.h"
#include "FilePlace.h"
#include "RowStory.h"
#include "Say.h"

#include <QClipboard>
#include <QCoroFuture>
#include <QGuiApplication>
#include <QPointer>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace wendlow {

namespace {

using namespace std::chrono_literals;

/// Rows that come one after the other within less than this are a flicker.
constexpr auto patience = 300ms;
/// Who closes the last window is not kept waiting.
constexpr auto quitting = 1s;

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

RowFacts factsOf(const ScanReport& report) {
    return {report.state, report.facts.unreadable};
}

void logRepairs(const std::vector<Converge::Repair>& repairs, const PaneModel::Log& log) {
    for (const auto& [name, outcome] : repairs) {
        log(fmt::format("repair: {}: {}", name, wendlow::text(outcome.result)));
        for (const Observation& line : outcome.observations)
            log(fmt::format("repair: {}: {}", line.subject, line.text));
    }
}

} // namespace

ConnectedAppsModel::Tool::Tool(std::shared_ptr<Connector> worked)
    : connector(std::move(worked)), id(connector->identity().id), lane(id) {}

ConnectedAppsModel::ConnectedAppsModel(Connectors::List connectors,
                                       std::optional<std::string> endpoint,
                                       Surroundings surroundings)
    : m_endpoint(std::move(endpoint)), m_surroundings(std::move(surroundings)),
      m_apps(m_surroundings.home) {
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    QObject::connect(&m_patience, &QTimer::timeout, this, [this] {
        m_impatient = true;
        land();
    });
    for (auto& connector : connectors) {
        Tool& tool = *m_tools.emplace_back(std::make_unique<Tool>(std::move(connector)));
        tool.inventory = new AppInventory(tool.connector, tool.lane.pool(), words(), this);
    }
}

ConnectedAppsModel::~ConnectedAppsModel() {
    const QDeadlineTimer limit(quitting);
    for (const auto& tool : m_tools) {
        ++*tool->generation;
        tool->inventory->drop();
    }
    for (const auto& tool : m_tools)
        tool->lane.waitUntil(limit);
}

std::unique_ptr<ConnectedAppsModel> ConnectedAppsModel::forThisMac(
    const std::filesystem::path& home, const std::optional<std::filesystem::path>& bundle,
    const std::filesystem::path& applications, Surroundings surroundings) {
    surroundings.home = home;
    if (bundle) {
        surroundings.retire = [home, bundle = *bundle] {
            return Converge::retire(home, bundle, Connectors::Profile::production,
                                    [] { return ClaudeDesktop::isRunning(); });
        };
        return std::make_unique<ConnectedAppsModel>(Connectors::all(home, *bundle, applications),
                                                    Connectors::mcpCommand(*bundle).string(),
                                                    std::move(surroundings));
    }
    auto model = std::make_unique<ConnectedAppsModel>(Connectors::List(), std::nullopt,
                                                      std::move(surroundings));
    model->m_error = text(say("Wendlow is not running from an installed app bundle, so there "
                              "is no binary here to point an app at."));
    return model;
}

void ConnectedAppsModel::copyToPasteboard(const QString& text) {
    QClipboard* const clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(text);
}

void ConnectedAppsModel::scan() {
    // Nobody waits for them: what they find lands in the list.
    for (const auto& tool : m_tools)
        scanTool(tool.get());
    if (m_tools.empty())
        land();
}

void ConnectedAppsModel::refresh() {
    for (const auto& tool : m_tools)
        if (tool->pending == 0 && !tool->inventory->loading())
            scanTool(tool.get());
    if (m_tools.empty())
        land();
}

void ConnectedAppsModel::connect(const QString& id) {
    run(tool(id.toStdString()), RowVerb::connect);
}

void ConnectedAppsModel::disconnect(const QString& id) {
    run(tool(id.toStdString()), RowVerb::disconnect);
}

void ConnectedAppsModel::act(const QString& id, int action, const QString& path) {
    Tool* const concerned = tool(id.toStdString());
    if (!concerned)
        return;
    switch (static_cast<RowAction>(action)) {
    case RowAction::undo:
        if (concerned->note && concerned->note->canBeUndone)
            run(concerned,
                concerned->note->verb == RowVerb::connect ? RowVerb::disconnect : RowVerb::connect);
        break;
    case RowAction::connect:
        run(concerned, RowVerb::connect);
        break;
    case RowAction::disconnect:
        run(concerned, RowVerb::disconnect);
        break;
    case RowAction::copyPath:
        copySubject(path);
        break;
    case RowAction::lookAgain:
        scanTool(concerned);
        break;
    }
}

QFuture<void> ConnectedAppsModel::inTurn(const std::string& id,
                                         std::function<void(const Connector&)> work) {
    Tool* const concerned = tool(id);
    if (!concerned)
        return QtFuture::makeReadyFuture();
    return concerned->lane.run(
        [connector = concerned->connector, work = std::move(work)] { work(*connector); });
}

std::vector<std::string> ConnectedAppsModel::ids() const {
    std::vector<std::string> ids;
    ids.reserve(m_tools.size());
    for (const auto& tool : m_tools)
        ids.push_back(tool->id);
    return ids;
}

QCoro::Task<> ConnectedAppsModel::scanTool(Tool* tool) {
    const QPointer<ConnectedAppsModel> alive(this);
    const auto newest = tool->generation;
    const int mine = ++*newest;
    ++tool->pending;
    tool->scanning = true;
    const auto work =
        tool->lane.run([connector = tool->connector, newest, mine,
                        paths = tool->note ? tool->note->paths() : std::vector<std::string>()] {
            if (*newest != mine)
                return std::shared_ptr<Look>(); // it could not land any more
            auto look = std::make_shared<Look>();
            look->report = connector->scan();
            look->places = FilePlace::words(look->report.observations);
            look->files = stampsOf(paths);
            return look;
        });
    const std::shared_ptr<Look> look = co_await work;
    if (!alive)
        co_return;
    --tool->pending;
    if (*newest != mine || !look)
        co_return;
    tool->scanning = false;
    tool->fresh = std::move(*look);
    landWhenTold();
}

QCoro::Task<> ConnectedAppsModel::run(Tool* tool, RowVerb verb) {
    if (!tool)
        co_return;
    const QPointer<ConnectedAppsModel> alive(this);
    // Closed and opened again by the notes of the old verb and the new one, the row would jump.
    if (tool->shown)
        m_openness.hold(tool->id, isOpen(*tool));
    tool->note.reset();
    ++tool->verbs;
    ++tool->pending;
    publish();
    const auto work = tool->lane.run([connector = tool->connector, verb] {
        return std::make_shared<VerbNote>(VerbNote::of(*connector, verb));
    });
    const std::shared_ptr<VerbNote> note = co_await work;
    if (!alive)
        co_return;
    --tool->pending;
    tool->note = std::move(*note);
    ++tool->ended;
    scanTool(tool);
}

void ConnectedAppsModel::started(const Log& log) {
    for (const auto& tool : m_tools)
        repair(tool.get(), log);
    if (m_surroundings.retire && !m_tools.empty())
        retire(m_tools.front().get(), log);
}

/// Whether there is anything to repair is found out on the lane too, behind the verbs that a person
/// has asked for by then: what they have switched off is not stale.
QCoro::Task<> ConnectedAppsModel::repair(Tool* tool, Log log) {
    const QPointer<ConnectedAppsModel> alive(this);
    ++tool->pending;
    const auto work = tool->lane.run([connector = tool->connector, log] {
        const auto repairs = Converge::run({connector});
        logRepairs(repairs, log);
        return !repairs.empty();
    });
    const bool repaired = co_await work;
    if (!alive)
        co_return;
    --tool->pending;
    if (repaired)
        scanTool(tool);
}

QCoro::Task<> ConnectedAppsModel::retire(Tool* tool, Log log) {
    const QPointer<ConnectedAppsModel> alive(this);
    ++tool->pending;
    const auto work =
        tool->lane.run([retire = m_surroundings.retire, log] { logRepairs(retire(), log); });
    co_await work;
    if (alive)
        --tool->pending;
}

void ConnectedAppsModel::landWhenTold() {
    const bool waits =
        std::ranges::any_of(m_tools, [](const auto& tool) { return tool->scanning; });
    if (!waits) {
        m_patience.stop();
        m_impatient = false;
        land();
    } else if (m_impatient) {
        land();
    } else if (!m_patience.isActive()) {
        m_patience.start();
    }
}

void ConnectedAppsModel::land() {
    std::vector<Tool*> settled;
    for (const auto& tool : m_tools) {
        if (!tool->fresh)
            continue;
        tool->shown = std::exchange(tool->fresh, std::nullopt);
        if (tool->ended > 0)
            settled.push_back(tool.get());
        settle(*tool);
        m_openness.observe(tool->id, factsOf(tool->shown->report));
        const bool open = isHere(*tool) && isOpen(*tool);
        tool->inventory->setOpen(open, Reread::yes);
    }
    publish();
    for (const Tool* const tool : settled)
        tell(*tool);
    const bool known =
        std::ranges::all_of(m_tools, [](const auto& tool) { return tool->shown.has_value(); });
    if (known && !std::exchange(m_scanned, true))
        Q_EMIT scannedChanged();
    Q_EMIT landed();
}

/// A scan that lands is always the tool's newest, so it was begun after each verb that has ended. A
/// verb's own scan may have been overtaken by a later one; whichever lands stamps the note.
void ConnectedAppsModel::settle(Tool& tool) {
    const ScanReport& now = tool.shown->report;
    const int ended = std::exchange(tool.ended, 0);
    if (tool.note && ended > 0)
        tool.note->stateWhenSeen = now.state;
    tool.verbs -= ended;
    if (ended > 0 && tool.verbs == 0)
        m_openness.forget(tool.id);
    if (!tool.note || !tool.note->stateWhenSeen)
        return; // without a stamp its verb is still in flight
    const bool others = tool.note->files != tool.shown->files;
    tool.note->canBeUndone = tool.note->canBeUndone && !others;
    const bool mended = others && tool.note->result == ConnectorOutcome::Result::refused;
    if (!isHere(tool) || *tool.note->stateWhenSeen != now.state || mended)
        tool.note.reset();
}

void ConnectedAppsModel::tell(const Tool& tool) {
    if (tool.note)
        Q_EMIT said(text(RowStory::spoken({.name = tool.shown->report.identity.name,
                                           .state = tool.shown->report.state,
                                           .verb = &*tool.note})));
}

InventoryWords ConnectedAppsModel::words() const {
    const auto systemClock = [] { return FileDate::clock::now(); };
    return {m_surroundings.home.string(), m_surroundings.locale,
            m_surroundings.now ? m_surroundings.now : systemClock};
}

bool ConnectedAppsModel::idle() const {
    return std::ranges::all_of(m_tools, [](const auto& tool) {
        return tool->pending == 0 && !tool->fresh && !tool->inventory->loading();
    });
}

void ConnectedAppsModel::publish() {
    std::vector<ConnectedAppRow> rows;
    for (const auto& tool : m_tools) {
        if (isHere(*tool))
            rows.push_back(row(*tool));
        tool->inventory->setOpen(isHere(*tool) && isOpen(*tool), Reread::no);
    }
    m_apps.show(rows);
}

ConnectedAppRow ConnectedAppsModel::row(const Tool& tool) const {
    const ScanReport& report = tool.shown->report;
    const ConnectorIdentity& who = report.identity;
    const std::string asset = ConnectableAppIcon::brandAsset(who.id);
    const bool drawn =
        !asset.empty() && m_surroundings.imageLoads && m_surroundings.imageLoads(asset);
    ConnectableAppIcon icon;
    if (drawn)
        icon.kind = ConnectableAppIcon::Asset{asset};
    else
        icon.kind = ConnectableAppIcon::Glyph{who.symbol};
    const bool seen = tool.note && tool.note->stateWhenSeen;
    const RowStory::Subject subject{
        .name = who.name, .state = report.state, .verb = seen ? &*tool.note : nullptr};
    return {.app = {.id = who.id,
                    .name = who.name,
                    .detail = who.detail,
                    .icon = std::move(icon),
                    .connected = report.state == ConnectorState::connected,
                    .busy = tool.verbs > 0},
            .drifted = report.state == ConnectorState::drifted,
            .open = isOpen(tool),
            .strips = tool.verbs > 0 ? std::vector<RowStrip>() : RowStory::strips(subject),
            .changes = RowStory::changes(subject),
            .changesTitle = RowStory::changesTitle(subject),
            .notes = RowStory::numbered(report.observations, tool.shown->places),
            .inventory = tool.inventory};
}

bool ConnectedAppsModel::isHere(const Tool& tool) {
    return tool.shown && tool.shown->report.state != ConnectorState::notFound;
}

bool ConnectedAppsModel::isOpen(const Tool& tool) const {
    return m_openness.isOpen(tool.id, factsOf(tool.shown->report),
                             tool.note ? VerbWords::there : VerbWords::none);
}

std::vector<ConnectableAppNote> ConnectedAppsModel::notes(const std::string& id) const {
    const Tool* const known = tool(id);
    if (!known || !known->shown)
        return {};
    Observations lines;
    std::vector<std::string> places;
    if (known->note) {
        lines = known->note->lines;
        places = known->note->places;
    }
    append(lines, known->shown->report.observations);
    places.insert(places.end(), known->shown->places.begin(), known->shown->places.end());
    return RowStory::numbered(lines, places);
}

void ConnectedAppsModel::setOpen(const QString& id, bool open) {
    const Tool* const known = tool(id.toStdString());
    if (!known || !known->shown || isOpen(*known) == open)
        return;
    m_openness.choose(known->id, open, factsOf(known->shown->report));
    publish();
}

void ConnectedAppsModel::copyEndpoint() {
    if (m_endpoint)
        copySubject(endpoint());
}

void ConnectedAppsModel::copySubject(const QString& text) {
    if (m_surroundings.copy)
        m_surroundings.copy(text);
    else
        copyToPasteboard(text);
    Q_EMIT said(QString::fromStdString(say("Copied")));
}

ConnectedAppsModel::Tool* ConnectedAppsModel::tool(const std::string& id) const {
    const auto found =
        std::ranges::find_if(m_tools, [&id](const auto& tool) { return tool->id == id; });
    return found == m_tools.end() ? nullptr : found->get();
}

QString ConnectedAppsModel::mastheadTitle() {
    return text(say("Give your AI superpowers"));
}

QString ConnectedAppsModel::mastheadBody() {
    return text(say("Connect your AI apps to get work done faster and smarter. If you add new "
                    "apps come back here to connect them."));
}

QString ConnectedAppsModel::otherToolsTitle() {
    return text(say("Add another app"));
}

QString ConnectedAppsModel::endpointCaption() {
    return text(say("Point any MCP client at this command:"));
}

QString ConnectedAppsModel::copyWord() {
    return text(say("Copy"));
}

QString ConnectedAppsModel::noEndpointSentence() {
    return text(say("Wendlow is not running from an installed app bundle, so there is no "
                    "command here to copy."));
}

QString ConnectedAppsModel::emptySentence() const {
    return text(m_scanned ? say("No AI apps were found on this Mac.")
                          : say("Looking for AI apps on this Mac…"));
}

QString ConnectedAppsModel::emptyAdvice() const {
    if (!m_scanned || m_tools.empty())
        return {};
    std::vector<std::string> names;
    names.reserve(m_tools.size());
    for (const auto& tool : m_tools)
        names.push_back(tool->connector->identity().name);
    std::string list = std::move(names.back());
    names.pop_back();
    if (!names.empty())
        list = say("{} or {}", fmt::format("{}", fmt::join(names, ", ")), list);
    return text(
        say("Install {}, start it once and come back: Wendlow looks again by itself.", list));
}

QString ConnectedAppsModel::lookAgainWords() {
    return text(RowStory::label(RowAction::lookAgain));
}

} // namespace wendlow

#include "moc_ConnectedAppsModel.cpp"
