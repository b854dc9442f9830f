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

} // namespace

Snapshots::Snapshots(SettingsApplication& application, const LaunchOptions& options)
    : m_application(application), m_options(options) {}

int Snapshots::take() {
    std::error_code error;
    std::filesystem::create_directories(*m_options.snapshots, error);
    if (error)
        m_fault = fmt::format("the folder {} can't be made: {}", m_options.snapshots->string(),
                              error.message());
    QObject::connect(&m_application.factory(), &WindowFactory::warned, &m_application,
                     [this](const QString& words) { m_fault = words.toStdString(); });
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
    for (const WindowDescription& description : WindowDescriptions::all()) {
        const bool dark = m_looks == QStringLiteral("dark");
        if (description.alwaysDark && !dark)
            continue;
        QQuickWindow& window = shown(description);
        m_application.factory().looksOf(description.kind).setDark(dark);
        const PictureSession session{
            .window = window,
            .save = [&](const QString& name,
                        PictureSession::Focus focus) { save(window, name, focus); },
            .looks = m_application.factory().looksOf(description.kind),
            .isAsGiven = m_options.size || m_options.textScale};
        if (description.takePictures)
            description.takePictures(session, m_application.models());
        else
            session.save(QString::fromUtf8(description.id), PictureSession::Focus::away);
    }
    save(static_cast<QQuickWindow&>(m_application.showAbout()), QStringLiteral("about"),
         PictureSession::Focus::away);
    takeShortcuts();
}

/// As it opens, and where its places stand below each other.
void Snapshots::takeShortcuts() {
    auto& sheet = static_cast<QQuickWindow&>(m_application.showShortcuts());
    const QSize own = sheet.size();
    save(sheet, QStringLiteral("shortcuts"), PictureSession::Focus::away);
    sheet.resize(560, 420);
    save(sheet, QStringLiteral("shortcuts-560x420"), PictureSession::Focus::away);
    sheet.resize(own);
}

QQuickWindow& Snapshots::shown(const WindowDescription& description) {
    QWindow& window = m_application.present(description.kind);
    if (m_options.size && description.styles.testFlag(WindowStyle::resizable))
        window.resize(m_options.size->width, m_options.size->height);
    return static_cast<QQuickWindow&>(window);
}

void Snapshots::save(QQuickWindow& window, const QString& name, PictureSession::Focus focus) {
    runEventLoopUntil([&] { return m_application.models().settled(); }, 30s);
    if (focus == PictureSession::Focus::away)
        takeFocusAway(window);
    runEventLoopUntil([] { return false; }, 60ms); // what a change sets in motion is drawn
    const QImage picture = window.grabWindow();
    const std::filesystem::path file =
        *m_options.snapshots / fmt::format("{}-{}.png", name.toStdString(), m_looks.toStdString());
    if (picture.isNull() || !picture.save(QString::fromStdString(file.string())))
        m_fault = fmt::format("the picture {} can't be written", file.string());
    else
        fmt::print("{}\n", file.string());
}

} // namespace wendlow
