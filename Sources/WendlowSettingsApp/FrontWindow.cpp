#include "FrontWindow.h"

#include <QGuiApplication>

#include <algorithm>

namespace wendlow {

namespace {

bool isOnScreen(const QWindow* window) {
    return window && window->isVisible() && !window->windowStates().testFlag(Qt::WindowMinimized);
}

} // namespace

FrontWindow::FrontWindow() {
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &FrontWindow::follow);
    follow(QGuiApplication::focusWindow());
}

QWindow* FrontWindow::window() const {
    const auto front = std::ranges::find_if(m_recent, &isOnScreen);
    return front == m_recent.end() ? nullptr : front->data();
}

QWindow* FrontWindow::mainWindow() const {
    QWindow* main = window();
    while (main && main->transientParent())
        main = main->transientParent();
    return main;
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
