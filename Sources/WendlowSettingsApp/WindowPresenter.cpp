#include "WindowPresenter.h"

#include "WindowPlacing.h"

#include <QGuiApplication>
#include <QScreen>

#include <utility>
#include <vector>

namespace wendlow {

WindowPresenter::WindowPresenter(Make make) : m_make(std::move(make)) {}

WindowPresenter::~WindowPresenter() = default;

QWindow& WindowPresenter::present(WindowKind kind) {
    QWindow* const existing = window(kind);
    QWindow& shown = existing ? *existing : build(kind);
    bringToFront(shown);
    return shown;
}

void WindowPresenter::bringToFront(QWindow& window) {
    if (window.windowStates().testFlag(Qt::WindowMinimized))
        window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.requestActivate();
}

QWindow* WindowPresenter::window(WindowKind kind) const {
    const auto slot = m_slots.find(kind);
    return slot == m_slots.end() ? nullptr : slot->second.get();
}

QWindow& WindowPresenter::build(WindowKind kind) {
    QWindow& window = *m_slots.emplace(kind, m_make(kind)).first->second;
    const WindowDescription& description = WindowDescriptions::of(kind);
    WindowDescriptions::dress(window, description);
    place(window, description);
    return window;
}

void WindowPresenter::place(QWindow& window, const WindowDescription& description) {
    QPoint origin = WindowPlacing::centred(window.size(), window.screen()->availableGeometry());
    if (description.place == WindowPlace::centredThenCascaded) {
        std::vector<QPoint> taken;
        for (const QWindow* const other : QGuiApplication::topLevelWindows()) {
            if (other != &window && other->isVisible())
                taken.push_back(other->framePosition());
        }
        origin = WindowPlacing::cascaded(origin, taken);
    }
    window.setFramePosition(origin);
}

} // namespace wendlow

#include "moc_WindowPresenter.cpp"
