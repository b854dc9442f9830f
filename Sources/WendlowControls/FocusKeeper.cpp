#include "FocusKeeper.h"

#include <QQuickWindow>

namespace wendlow {

FocusKeeper::FocusKeeper(QObject* parent) : QObject(parent) {
    m_soon.setSingleShot(true);
    m_soon.setInterval(0);
    connect(&m_soon, &QTimer::timeout, this, &FocusKeeper::judge);
}

void FocusKeeper::setContent(QQuickItem* content) {
    if (m_content == content)
        return;
    if (m_content)
        disconnect(m_content, nullptr, this, nullptr);
    m_content = content;
    if (m_content)
        connect(m_content, &QQuickItem::windowChanged, this, &FocusKeeper::followWindow);
    followWindow();
    Q_EMIT contentChanged();
}

void FocusKeeper::followWindow() {
    if (m_window)
        disconnect(m_window, nullptr, this, nullptr);
    m_window = m_content ? m_content->window() : nullptr;
    if (m_window) {
        connect(m_window, &QQuickWindow::activeFocusItemChanged, this, &FocusKeeper::followFocus);
        connect(m_window, &QWindow::activeChanged, &m_soon, qOverload<>(&QTimer::start));
    }
    followFocus();
}

void FocusKeeper::followFocus() {
    if (m_focused)
        disconnect(m_focused, nullptr, &m_soon, nullptr);
    m_focused = m_window ? m_window->activeFocusItem() : nullptr;
    if (m_focused) {
        connect(m_focused, &QQuickItem::visibleChanged, &m_soon, qOverload<>(&QTimer::start));
        connect(m_focused, &QQuickItem::enabledChanged, &m_soon, qOverload<>(&QTimer::start));
    }
    m_soon.start();
}

bool FocusKeeper::shows(const QQuickItem& item) {
    return item.isVisible() && item.isEnabled() && !item.isFocusScope() && item.width() > 0 &&
           item.height() > 0;
}

void FocusKeeper::judge() {
    // A window that is not in front has no focus, and gets its own back.
    if (!m_window || !m_window->isActive() || !m_content || !m_content->isVisible())
        return;
    const QQuickItem* const focused = m_window->activeFocusItem();
    if (focused && shows(*focused))
        return;
    const bool elsewhere = focused && focused != m_window->contentItem() && focused != m_content &&
                           !m_content->isAncestorOf(focused) && !focused->isAncestorOf(m_content);
    if (!elsewhere)
        Q_EMIT lost();
}

} // namespace wendlow

#include "moc_FocusKeeper.cpp"
