#include "EditorSnapshots.h"

#include "UnimplementedGateway.h"
#include "WarmingGateway.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QQuickWindow>

#include <utility>

namespace wendlow {

namespace {

void showAllPlaces(RailModel& rail) {
    for (int row = 0; row < rail.rowCount(); ++row)
        if (rail.row(row).kind == RailRow::Kind::more)
            rail.activate(row);
}

} // namespace

EditorSnapshots::EditorSnapshots(QQuickItem& content, EditorHost& host, EditorWorlds& worlds,
                                 Save save)
    : m_content(content), m_host(host), m_worlds(worlds), m_save(std::move(save)) {}

EditorSnapshots::~EditorSnapshots() {
    m_hosts.clear();
    m_daemons.clear();
    m_silent->giveUp(); // who still waits would hold it for ever
}

void EditorSnapshots::take() {
    const EditorWorld before = m_worlds.world();
    m_host.setPosing(true);
    takeDaemon(World::silent, m_silent);
    takeDaemon(World::warming, std::make_shared<WarmingGateway>());
    takeDaemon(World::refusing, std::make_shared<UnimplementedGateway>());
    m_worlds.switchWorld(EditorWorld::dayZero);
    takeFaces(root(), World::empty);
    m_worlds.switchWorld(EditorWorld::powerUser);
    takeScopes();
    takeFaces(root(), World::full);
    takeSearch();
    m_host.setPosing(false);
    save("made-up");
    m_worlds.switchWorld(before);
}

void EditorSnapshots::takeSome(const QString& suffix) {
    const EditorWorld before = m_worlds.world();
    m_host.setPosing(true);
    m_suffix = suffix;
    m_worlds.switchWorld(EditorWorld::powerUser);
    takeFaces(root(), World::full);
    takeSearch();
    m_host.setPosing(false);
    m_worlds.switchWorld(before);
    m_suffix.clear();
}

void EditorSnapshots::save(const char* state, Focus focus) {
    constexpr int longestWait = 5000;
    for (const QDeadlineTimer limit(longestWait);
         !root().openFace()->isStill() && !limit.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    m_save(QStringLiteral("editor-") + QLatin1String(state) + m_suffix, focus);
}

void EditorSnapshots::takeFaces(EditorRoot& root, World world) {
    for (const EditorFace face : EditorFaces::all) {
        FacePictures pictures = root.model(face).pictures();
        std::erase_if(pictures, [&](const FacePicture& picture) {
            return picture.world != world ||
                   (!m_suffix.isEmpty() && picture.widths == FacePicture::Widths::own);
        });
        if (!pictures.empty())
            root.setFace(face);
        for (const FacePicture& picture : pictures) {
            if (picture.wholeRail)
                showAllPlaces(*root.rail());
            if (picture.stand)
                picture.stand();
            if (world != World::empty && world != World::full)
                SilentGateway::waitUntilNoticed();
            save(picture.name);
            if (picture.leave)
                picture.leave();
        }
    }
    root.setFace(EditorFaces::all.front());
}

void EditorSnapshots::takeScopes() {
    root().bar()->setPickerOpen(true);
    save("scopes");
    root().bar()->setPickerOpen(false);
}

void EditorSnapshots::takeSearch() {
    type(QStringLiteral("backup"));
    save("search", Focus::kept);
    root().search()->clear();
}

/// As a person does, into the search field: the first stop of the focus in the window's content.
void EditorSnapshots::type(const QString& text) {
    m_content.nextItemInFocusChain()->forceActiveFocus();
    for (const QChar letter : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, letter);
        QCoreApplication::sendEvent(m_content.window(), &press);
    }
}

void EditorSnapshots::takeDaemon(World world, std::shared_ptr<Gateway> gateway) {
    auto& worlds = m_daemons.emplace_back(std::make_unique<EditorWorlds>(
        std::make_shared<InProcessClient>(std::move(gateway)), EditorWorld::realData));
    auto& host = m_hosts.emplace_back(std::make_unique<EditorHost>(*worlds));
    host->setPosing(true);
    m_content.setProperty("host", QVariant::fromValue(host.get()));
    takeFaces(*host->root(), world);
    m_content.setProperty("host", QVariant::fromValue(&m_host));
}

} // namespace wendlow
