#include "Snapshots.h"

#include <QCursor>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QImage>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>

#include <fmt/format.h>

#include <cstdio>
#include <functional>
#include <utility>

namespace wendlow {

namespace {

using namespace std::chrono_literals;

void runEventLoopUntil(const std::function<bool()>& done, std::chrono::milliseconds limit) {
    const QDeadlineTimer deadline(limit);
    while (!done() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
        // Outside of the application's own loop nothing else lets go of what is to go.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

QString fileName(Pane pane) {
    switch (pane) {
    case Pane::privacy:
        return QStringLiteral("general");
    case Pane::recording:
        return QStringLiteral("recording");
    case Pane::connected:
        return QStringLiteral("connected");
    case Pane::classifier:
        return QStringLiteral("classifier");
    case Pane::recovery:
        return QStringLiteral("recovery");
    }
    return {};
}

/// Takes the focus from everything in the window, so that no ring is drawn around it.
void takeFocusAway(const QQuickWindow& window) {
    // One scope after the other, from the inside; each has the focus when what was in it lost it.
    for (QQuickItem* focused = window.activeFocusItem();
         focused && focused != window.contentItem();) {
        focused->setFocus(false);
        QQuickItem* const next = window.activeFocusItem();
        focused = next == focused ? nullptr : next;
    }
}

/// "Filters Bench" as a part of a file name: "filters-bench".
QString fileName(const WindowDescription& description) {
    if (description.kind == WindowKind::onboarding)
        return QStringLiteral("journey");
    return QString::fromUtf8(description.title).toLower().replace(u' ', u'-');
}

} // namespace

Snapshots::Snapshots(SettingsApplication& application, std::filesystem::path folder,
                     std::optional<PixelSize> size)
    : m_application(application), m_folder(std::move(folder)), m_size(size) {}

int Snapshots::take() {
    std::error_code error;
    std::filesystem::create_directories(m_folder, error);
    if (error)
        m_fault =
            fmt::format("the folder {} can't be made: {}", m_folder.string(), error.message());
    // Off the windows, or what lies below it looks touched.
    QCursor::setPos(QGuiApplication::primaryScreen()->virtualGeometry().bottomRight() * 10);
    ThemeSource& looks = m_application.factory().looks();
    looks.setReduceMotion(true);
    for (const auto& [name, dark] : {std::pair("light", false), std::pair("dark", true)}) {
        m_looks = QString::fromLatin1(name);
        looks.setDark(dark);
        takeInLooks();
    }
    if (!m_fault.empty())
        fmt::print(stderr, "wendlow-settings: {}\n", m_fault);
    return m_fault.empty() ? 0 : 1;
}

void Snapshots::takeInLooks() {
    takeSettings();
    takeEditor();
    for (const WindowDescription& description : WindowDescriptions::all()) {
        if (description.kind == WindowKind::settings || description.kind == WindowKind::editor ||
            (description.alwaysDark && m_looks == QStringLiteral("light")))
            continue;
        save(shown(description.kind), fileName(description));
    }
    m_application.showAbout();
    for (QWindow* const window : QGuiApplication::topLevelWindows()) {
        if (window->flags().testFlag(Qt::Dialog) && window->isVisible())
            save(*window, QStringLiteral("about"));
    }
}

void Snapshots::takeSettings() {
    QQuickWindow& window = shown(WindowKind::settings);
    SettingsRoot& root = m_application.settings();
    const QString first = root.selectionTitle();
    for (const Pane pane : Panes::all) {
        const QString title = QString::fromUtf8(Panes::title(pane));
        root.select(title);
        save(window, QStringLiteral("settings-") + fileName(pane));
        if (pane == Pane::connected)
            takeConnectedApps(window);
    }
    root.select(first);
}

void Snapshots::takeEditor() {
    QQuickWindow& window = shown(WindowKind::editor);
    auto* const content = window.property("content").value<QQuickItem*>();
    EditorSnapshots snapshots(
        *content, m_application.editor(), m_application.worlds(),
        [&](const QString& name, EditorSnapshots::Focus focus) { save(window, name, focus); });
    snapshots.take();
    if (m_size)
        return;
    const QSize own = window.size();
    for (const QSize size : {QSize(700, 560), QSize(1600, 1000)}) {
        window.resize(size);
        snapshots.takeAtWidth(QStringLiteral("-%1").arg(size.width()));
    }
    window.resize(own);
}

void Snapshots::takeConnectedApps(QQuickWindow& window) {
    ConnectedAppsModel& model = *m_application.settings().connected();
    const std::vector<ConnectedAppRow> rows = model.apps();
    for (const ConnectedAppRow& row : rows) {
        const QString id = QString::fromStdString(row.app.id);
        model.setOpen(id, true);
        save(window, QStringLiteral("settings-connected-") + id);
        if (InventoryList& projects = *row.inventory->projects();
            !projects.toggleWords().isEmpty()) {
            projects.toggle();
            save(window, QStringLiteral("settings-connected-") + id + QStringLiteral("-all"));
        }
        model.setOpen(id, row.open);
    }
}

QQuickWindow& Snapshots::shown(WindowKind kind) {
    QWindow& window = m_application.present(kind);
    if (m_size && WindowDescriptions::of(kind).styles.testFlag(WindowStyle::resizable))
        window.resize(m_size->width, m_size->height);
    return static_cast<QQuickWindow&>(window);
}

void Snapshots::save(QWindow& window, const QString& name, EditorSnapshots::Focus focus) {
    const ConnectedAppsModel& model = *m_application.settings().connected();
    runEventLoopUntil([&] { return model.scanned() && model.idle(); }, 30s);
    if (focus == EditorSnapshots::Focus::away)
        takeFocusAway(static_cast<QQuickWindow&>(window));
    runEventLoopUntil([] { return false; }, 60ms); // what a change sets in motion is drawn
    const QImage picture = static_cast<QQuickWindow&>(window).grabWindow();
    const std::filesystem::path file =
        m_folder / fmt::format("{}-{}.png", name.toStdString(), m_looks.toStdString());
    if (picture.isNull() || !picture.save(QString::fromStdString(file.string())))
        m_fault = fmt::format("the picture {} can't be written", file.string());
    else
        fmt::print("{}\n", file.string());
}

} // namespace wendlow
