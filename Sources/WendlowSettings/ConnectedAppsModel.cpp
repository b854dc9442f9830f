#include "ConnectedAppsModel.h"

#include <QClipboard>
#include <QCoroFuture>
#include <QGuiApplication>
#include <QPointer>
#include <QtConcurrentRun>

#include <algorithm>
#include <string_view>
#include <utility>

namespace wendlow {

namespace {

constexpr std::string_view backupSentence = "a backup was written here before this change";

RowFacts factsOf(const ScanReport& report) {
    return {report.state, report.facts.unreadable};
}

ConnectedAppsModel::VerbNote noteOf(const ConnectorOutcome& outcome) {
    ConnectedAppsModel::VerbNote note{outcome.observations, std::nullopt};
    for (const std::filesystem::path& backup : outcome.backups)
        note.lines.push_back({backup.string(), std::string(backupSentence)});
    return note;
}

} // namespace

ConnectedAppsModel::ConnectedAppsModel(Connectors::List connectors,
                                       std::optional<std::string> endpoint,
                                       Surroundings surroundings)
    : m_connectors(std::move(connectors)), m_endpoint(std::move(endpoint)),
      m_surroundings(std::move(surroundings)), m_apps(m_surroundings.home) {
    m_lane.setObjectName(QStringLiteral("wendlow.settings.connected-apps"));
    m_lane.setMaxThreadCount(1);
    for (const auto& connector : m_connectors)
        m_inventories.emplace(connector->identity().id,
                              new AppInventory(connector, m_lane, words(), this));
}

ConnectedAppsModel::~ConnectedAppsModel() {
    ++*m_generation;
    for (const auto& [id, inventory] : m_inventories)
        inventory->drop();
    m_lane.waitForDone();
}

std::unique_ptr<ConnectedAppsModel> ConnectedAppsModel::forThisMac(
    const std::filesystem::path& home, const std::optional<std::filesystem::path>& bundle,
    const std::filesystem::path& applications, Surroundings surroundings) {
    surroundings.home = home;
    if (bundle) {
        return std::make_unique<ConnectedAppsModel>(Connectors::all(home, *bundle, applications),
                                                    Connectors::mcpCommand(*bundle).string(),
                                                    std::move(surroundings));
    }
    auto model = std::make_unique<ConnectedAppsModel>(Connectors::List(), std::nullopt,
                                                      std::move(surroundings));
    model->m_error = QStringLiteral("Wendlow is not running from an installed app bundle, so there "
                                    "is no binary here to point an app at.");
    return model;
}

void ConnectedAppsModel::copyToPasteboard(const QString& text) {
    QClipboard* const clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(text);
}

template<class Work> auto ConnectedAppsModel::onTheLane(Work work) {
    return QtConcurrent::run(&m_lane, std::move(work));
}

void ConnectedAppsModel::scan() {
    // Nobody waits for it: what it finds lands in the list.
    scanOnce();
}

void ConnectedAppsModel::refresh() {
    if (idle())
        scan();
}

void ConnectedAppsModel::connect(const QString& id) {
    run(id.toStdString(), Verb::connect);
}

void ConnectedAppsModel::disconnect(const QString& id) {
    run(id.toStdString(), Verb::disconnect);
}

QCoro::Task<> ConnectedAppsModel::scanOnce() {
    const QPointer<ConnectedAppsModel> alive(this);
    const auto newest = m_generation;
    const int mine = ++*newest;
    ++m_pending;
    const QFuture<std::vector<ScanReport>> work =
        onTheLane([connectors = m_connectors, newest, mine] {
            std::vector<ScanReport> reports;
            if (*newest != mine)
                return reports; // it could not land any more
            for (const auto& connector : connectors)
                reports.push_back(connector->scan());
            return reports;
        });
    std::vector<ScanReport> reports = co_await work;
    if (!alive)
        co_return;
    --m_pending;
    if (*newest == mine)
        land(std::move(reports));
}

QCoro::Task<> ConnectedAppsModel::run(std::string id, Verb verb) {
    const QPointer<ConnectedAppsModel> alive(this);
    const std::shared_ptr<Connector> concerned = connector(id);
    if (!concerned)
        co_return;
    // Closed and opened again by the notes of the old verb and the new one, the row would jump.
    if (const ScanReport* const known = report(id))
        m_openness.hold(id, isOpen(*known));
    m_busy.insert(id);
    m_verbNotes.erase(id);
    ++m_pending;
    publish();
    const QFuture<ConnectorOutcome> work = onTheLane([concerned, verb] {
        return verb == Verb::connect ? concerned->install() : concerned->remove();
    });
    const ConnectorOutcome outcome = co_await work;
    if (!alive)
        co_return;
    --m_pending;
    m_verbNotes.insert_or_assign(id, noteOf(outcome));
    m_ended.push_back(id);
    scan();
}

void ConnectedAppsModel::land(std::vector<ScanReport> reports) {
    m_reports = std::move(reports);
    expireNotes();
    settleEndedVerbs();
    for (const ScanReport& report : m_reports)
        m_openness.observe(report.identity.id, factsOf(report));
    publish(Reread::yes);
    if (!std::exchange(m_scanned, true))
        Q_EMIT scannedChanged();
    Q_EMIT landed();
}

void ConnectedAppsModel::expireNotes() {
    std::erase_if(m_verbNotes, [this](const auto& entry) {
        const auto& [id, note] = entry;
        const ScanReport* const now = report(id);
        if (!now || now->state == ConnectorState::notFound)
            return true;
        // Without a stamp the note's verb is still in flight.
        return note.stateWhenSeen && *note.stateWhenSeen != now->state;
    });
}

/// A scan that lands is always the newest, so it was begun after each of these verbs had ended. One
/// verb's own scan may be overtaken by another's; stamping by whichever lands keeps a note from
/// being stamped with the state from before its verb.
void ConnectedAppsModel::settleEndedVerbs() {
    for (const std::string& id : std::exchange(m_ended, {})) {
        const auto note = m_verbNotes.find(id);
        const ScanReport* const now = report(id);
        if (note != m_verbNotes.end() && now)
            note->second.stateWhenSeen = now->state;
        m_busy.extract(id); // one of them: a second verb may still be in flight
        if (!m_busy.contains(id))
            m_openness.forget(id);
    }
}

InventoryWords ConnectedAppsModel::words() const {
    const auto systemClock = [] { return FileDate::clock::now(); };
    return {m_surroundings.home.string(), m_surroundings.locale,
            m_surroundings.now ? m_surroundings.now : systemClock};
}

bool ConnectedAppsModel::idle() const {
    return m_pending == 0 && std::ranges::none_of(m_inventories, [](const auto& entry) {
               return entry.second->loading();
           });
}

void ConnectedAppsModel::publish(Reread reread) {
    std::vector<ConnectedAppRow> rows;
    for (const ScanReport& report : m_reports) {
        if (report.state != ConnectorState::notFound)
            rows.push_back(row(report));
    }
    showInventories(rows, reread);
    m_apps.show(rows);
}

void ConnectedAppsModel::showInventories(const std::vector<ConnectedAppRow>& rows, Reread reread) {
    for (const auto& [id, inventory] : m_inventories) {
        const auto row = std::ranges::find(rows, inventory, &ConnectedAppRow::inventory);
        inventory->setOpen(row != rows.end() && row->open, reread);
    }
}

ConnectedAppRow ConnectedAppsModel::row(const ScanReport& report) const {
    const ConnectorIdentity& who = report.identity;
    const std::string asset = ConnectableAppIcon::brandAsset(who.id);
    const bool drawn =
        !asset.empty() && m_surroundings.imageLoads && m_surroundings.imageLoads(asset);
    ConnectableAppIcon icon;
    if (drawn)
        icon.kind = ConnectableAppIcon::Asset{asset};
    else
        icon.kind = ConnectableAppIcon::Glyph{who.symbol};
    return {.app = {.id = who.id,
                    .name = who.name,
                    .detail = who.detail,
                    .icon = std::move(icon),
                    .connected = report.state == ConnectorState::connected,
                    .busy = m_busy.contains(who.id)},
            .drifted = report.state == ConnectorState::drifted,
            .open = isOpen(report),
            .notes = notes(who.id),
            .inventory = m_inventories.at(who.id)};
}

bool ConnectedAppsModel::isOpen(const ScanReport& report) const {
    const std::string& id = report.identity.id;
    return m_openness.isOpen(id, factsOf(report),
                             m_verbNotes.contains(id) ? VerbWords::there : VerbWords::none);
}

std::vector<ConnectableAppNote> ConnectedAppsModel::notes(const std::string& id) const {
    const ScanReport* const known = report(id);
    if (!known)
        return {};
    std::vector<ConnectableAppNote> list;
    const auto add = [&list](const Observations& lines) {
        for (const Observation& line : lines)
            list.push_back({static_cast<int>(list.size()), line.text, line.subject});
    };
    if (const auto note = m_verbNotes.find(id); note != m_verbNotes.end())
        add(note->second.lines);
    add(known->observations);
    return list;
}

void ConnectedAppsModel::setOpen(const QString& id, bool open) {
    const ScanReport* const known = report(id.toStdString());
    if (!known || isOpen(*known) == open)
        return;
    m_openness.choose(known->identity.id, open, factsOf(*known));
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
}

const ScanReport* ConnectedAppsModel::report(const std::string& id) const {
    const auto found = std::ranges::find_if(
        m_reports, [&id](const ScanReport& report) { return report.identity.id == id; });
    return found == m_reports.end() ? nullptr : &*found;
}

std::shared_ptr<Connector> ConnectedAppsModel::connector(const std::string& id) const {
    const auto found = std::ranges::find_if(
        m_connectors, [&id](const auto& connector) { return connector->identity().id == id; });
    return found == m_connectors.end() ? nullptr : *found;
}

QString ConnectedAppsModel::mastheadTitle() {
    return QStringLiteral("Give your AI superpowers");
}

QString ConnectedAppsModel::mastheadBody() {
    return QStringLiteral(
        "Connect your AI apps to get work done faster and smarter. If you add new "
        "apps come back here to connect them.");
}

QString ConnectedAppsModel::otherToolsTitle() {
    return QStringLiteral("Add another app");
}

QString ConnectedAppsModel::endpointCaption() {
    return QStringLiteral("Point any MCP client at this command:");
}

QString ConnectedAppsModel::copyWord() {
    return QStringLiteral("Copy");
}

QString ConnectedAppsModel::noEndpointSentence() {
    return QStringLiteral("Wendlow is not running from an installed app bundle, so there is no "
                          "command here to copy.");
}

} // namespace wendlow
