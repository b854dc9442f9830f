#include "JourneyWiring.h"

#include "Bounded.h"

#include <QCoroFuture>
#include <QCoroTimer>
#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

bool holds(const JourneyWiring::Ids& ids, const std::string& id) {
    return std::ranges::find(ids, id) != ids.end();
}

JourneyWiring::Ids together(JourneyWiring::Ids first, const JourneyWiring::Ids& second) {
    std::ranges::copy_if(second, std::back_inserter(first),
                         [&first](const std::string& id) { return !holds(first, id); });
    return first;
}

/// For a bounded wait, which is for an answer.
QCoro::Task<bool> ended(QFuture<void> work) {
    co_await work;
    co_return true;
}

} // namespace

JourneyWiring::JourneyWiring(ConnectedAppsModel& apps, Load load, Save save, ToolsBefore tools)
    : m_apps(apps), m_load(std::move(load)), m_save(std::move(save)), m_tools(std::move(tools)),
      m_ids(m_load()) {
    const ConnectedAppsList* const rows = m_apps.appsList();
    connect(rows, &QAbstractItemModel::dataChanged, this, &JourneyWiring::look);
    connect(rows, &QAbstractItemModel::rowsInserted, this, &JourneyWiring::look);
    connect(rows, &QAbstractItemModel::rowsRemoved, this, &JourneyWiring::look);
    connect(rows, &QAbstractItemModel::rowsMoved, this, &JourneyWiring::look);
    connect(&m_apps, &ConnectedAppsModel::landed, this, &JourneyWiring::look);
    connect(&m_apps, &ConnectedAppsModel::scannedChanged, this, &JourneyWiring::look);
}

const ConnectableApp* JourneyWiring::app(const std::string& id) const {
    const auto& rows = m_apps.apps();
    const auto found =
        std::ranges::find_if(rows, [&id](const ConnectedAppRow& row) { return row.app.id == id; });
    return found == rows.end() ? nullptr : &found->app;
}

JourneyWiring::Ids JourneyWiring::connected() const {
    Ids ids;
    for (const ConnectedAppRow& row : m_apps.apps())
        if (row.app.connected)
            ids.push_back(row.app.id);
    return ids;
}

bool JourneyWiring::anyConnected() const {
    return !connected().empty();
}

JourneyWiring::Ids JourneyWiring::toUnwire(const Ids& pluggedIn, const Ids& connected) {
    Ids ids;
    std::ranges::copy_if(pluggedIn, std::back_inserter(ids),
                         [&](const std::string& id) { return holds(connected, id); });
    return ids;
}

JourneyWiring::Ids JourneyWiring::plugged() const {
    Ids names;
    for (const std::string& id : toUnwire(m_ids, connected()))
        names.push_back(app(id)->name);
    return names;
}

void JourneyWiring::save(const Ids& ids) {
    if (ids == m_ids)
        return;
    // A journey in another process may have put its own there since.
    Ids record = m_load();
    std::erase_if(record,
                  [&](const std::string& id) { return holds(m_ids, id) && !holds(ids, id); });
    m_ids = together(std::move(record), ids);
    m_save(m_ids);
}

void JourneyWiring::set(const std::string& id, bool on) {
    const ConnectableApp* const known = app(id);
    if (!known || known->busy || known->connected == on)
        return;
    m_working.insert(id);
    if (on) {
        save(together(m_ids, {id}));
        if (m_tools.beforeConnect)
            m_apps.inTurn(id, m_tools.beforeConnect);
        m_apps.connect(QString::fromStdString(id));
        if (m_tools.afterConnect)
            m_apps.inTurn(id, m_tools.afterConnect);
    } else {
        m_apps.disconnect(QString::fromStdString(id));
    }
}

void JourneyWiring::setAll(bool on) {
    Ids ids;
    for (const ConnectedAppRow& row : m_apps.apps())
        ids.push_back(row.app.id);
    for (const std::string& id : ids)
        set(id, on);
}

/// A verb of ours that has ended shows in what the tool's files hold by now.
void JourneyWiring::look() {
    Ids ids = m_ids;
    std::erase_if(m_working, [&](const std::string& id) {
        const ConnectableApp* const known = app(id);
        if (known && known->busy)
            return false;
        if (!known || !known->connected)
            std::erase(ids, id);
        return true;
    });
    save(ids);
    Q_EMIT changed();
}

QCoro::Task<> JourneyWiring::until(std::function<bool()> over, std::chrono::milliseconds limit) {
    if (over())
        co_return;
    QTimer patience;
    patience.setSingleShot(true);
    patience.start(limit);
    connect(this, &JourneyWiring::changed, &patience, [&patience, &over] {
        if (over())
            patience.start(std::chrono::milliseconds::zero());
    });
    // This may go meanwhile; then nothing changes any more, and the limit ends the wait.
    co_await patience;
}

QCoro::Task<> JourneyWiring::scanned(std::chrono::milliseconds limit) {
    if (!m_apps.scanned())
        m_apps.refresh();
    auto wait = until([this] { return m_apps.scanned(); }, limit);
    co_await wait;
}

QCoro::Task<> JourneyWiring::unplug(std::chrono::milliseconds limit) {
    const QPointer<JourneyWiring> self(this);
    // What is being plugged in just now counts too, once it is.
    auto calm = until([this] { return m_working.empty(); }, limit);
    co_await calm;
    if (!self)
        co_return;
    m_ids = together(m_ids, m_load());
    for (const std::string& id : toUnwire(m_ids, connected())) {
        m_apps.disconnect(QString::fromStdString(id));
        auto done = until(
            [this, id] {
                const ConnectableApp* const known = app(id);
                return !known || !known->busy;
            },
            limit);
        co_await done;
        if (!self)
            co_return;
    }
    auto rest = putBack(limit);
    co_await rest;
    if (self)
        save({});
}

/// Of each tool, since one may have been plugged in and out again: there is nothing to do for what
/// was never touched.
QCoro::Task<> JourneyWiring::putBack(std::chrono::milliseconds limit) {
    const QPointer<JourneyWiring> self(this);
    if (!m_tools.putBack)
        co_return;
    for (const std::string& id : m_apps.ids()) {
        auto turn = bounded(ended(m_apps.inTurn(id, m_tools.putBack)), limit);
        co_await turn;
        if (!self)
            co_return;
    }
}

} // namespace wendlow

#include "moc_JourneyWiring.cpp"
