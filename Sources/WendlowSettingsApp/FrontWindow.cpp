#include "FrontWindow.h"

#include <QGuiApplication>

#include <algorithm>

namespace wendlow {

namespace {

bool isOpen(const QWindow* window) {
    return window && window->isVisible();
}

bool isOnScreen(const QWindow* window) {
    return isOpen(window) && !window->windowStates().testFlag(Qt::WindowMinimized);
}

/// A panel belongs to one.
QWindow* mainOf(QWindow* window) {
    while (window && window->transientParent())
        window = window->transientParent();
    return window;
}

} // namespace

FrontWindow::FrontWindow() {
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &FrontWindow::follow);
    follow(QGuiApplication::focusWindow());
}

QWindow* FrontWindow::mostRecent(bool (*fits)(const QWindow*)) const {
    const auto found = std::ranges::find_if(m_recent, fits);
    return found == m_recent.end() ? nullptr : found->data();
}

QWindow* FrontWindow::window() const {
    return mostRecent(&isOnScreen);
}

QWindow* FrontWindow::mainWindow() const {
    return mainOf(window());
}

QWindow* FrontWindow::openWindow() const {
    QWindow* const front = mainWindow();
    return front ? front : mainOf(mostRecent(&isOpen));
}

void FrontWindow::follow(QWindow* focus) {
    if (!focus)
        return; // to another program; should it go because a window closes, that one tells
    if (std::erase(m_recent, focus) == 0) {
        // Any of them may go from the screen while another program has the focus.
        connect(focus, &QWindow::visibleChanged, this, &FrontWindow::changed);
        connect(focus, &QWindow::windowStateChanged, this, &FrontWindow::changed);
    }
    m_recent.insert(m_recent.begin(), focus);
    Q_EMIT changed();
}

} // namespace wendlow

#include "moc_FrontWindow.cpp"
