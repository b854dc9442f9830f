#include "AppInventory.h"

#include "ShownPath.h"

#include <QCoroFuture>
#include <QFuture>
#include <QPointer>
#include <qtconcurrenttask.h>

#include <chrono>
#include <utility>

namespace wendlow {

namespace {

using namespace std::chrono_literals;

/// Words that come and go within less than this are a flicker.
constexpr auto patience = 200ms;
/// Scans and verbs have 0: a person who works a switch does not wait for all open rows.
constexpr int behindTheRest = -1;

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

} // namespace

AppInventory::AppInventory(std::shared_ptr<Connector> connector, QThreadPool& lane,
                           InventoryWords words, QObject* parent)
    : QObject(parent), m_connector(std::move(connector)), m_lane(lane), m_home(words.home),
      m_projects(words), m_memoryFiles(std::move(words)) {
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        m_slow = true;
        Q_EMIT changed();
    });
}

AppInventory::~AppInventory() {
    ++*m_generation;
}

void AppInventory::setOpen(bool open, Reread reread) {
    const bool before = std::exchange(m_open, open);
    if (open && (!before || reread == Reread::yes)) {
        // What it finds lands in the tables; nobody waits for it.
        read();
    } else if (!open && before) {
        drop();
        m_projects.fold();
        m_memoryFiles.fold();
    }
}

void AppInventory::drop() {
    ++*m_generation;
    setLoading(false);
}

void AppInventory::setLoading(bool loading) {
    if (m_loading == loading)
        return;
    m_loading = loading;
    m_slow = false;
    if (loading)
        m_patience.start();
    else
        m_patience.stop();
    Q_EMIT changed();
}

QCoro::Task<> AppInventory::read() {
    const QPointer<AppInventory> alive(this);
    const auto newest = m_generation;
    const int mine = ++*newest;
    setLoading(true);
    // Shared, because a future hands out copies, and there may be many thousand lines.
    const QFuture<std::shared_ptr<Inventory>> work =
        QtConcurrent::task([connector = m_connector, newest, mine] {
            if (*newest != mine)
                return std::shared_ptr<Inventory>();
            ProjectReport projects = connector->projects();
            if (*newest != mine)
                return std::shared_ptr<Inventory>();
            return std::make_shared<Inventory>(
                Inventory::of(std::move(projects), connector->memoryFiles()));
        })
            .onThreadPool(m_lane)
            .withPriority(behindTheRest)
            .spawn();
    const std::shared_ptr<Inventory> inventory = co_await work;
    if (alive && *newest == mine && inventory)
        land(std::move(*inventory));
}

void AppInventory::land(Inventory inventory) {
    m_projects.show(std::move(inventory.projects));
    m_memoryFiles.show(std::move(inventory.memoryFiles));
    m_source = text(inventory.source);
    m_shownSource = text(shownPath(inventory.source, m_home));
    m_projectsNote = text(inventory.projectsNote);
    m_memoryNote = text(inventory.memoryNote);
    m_known = true;
    setLoading(false);
}

} // namespace wendlow

#include "moc_AppInventory.cpp"
