#include "ReadingOrder.h"

#include <QAccessible>
#include <QQuickWindow>

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

bool standsBefore(const QQuickItem* one, const QQuickItem* other) {
    return std::pair(one->y(), one->x()) < std::pair(other->y(), other->x());
}

} // namespace

void ReadingOrder::setRows(QQuickItem* rows) {
    if (m_rows == rows)
        return;
    if (m_rows)
        disconnect(m_rows, nullptr, this, nullptr);
    m_rows = rows;
    if (m_rows)
        connect(m_rows, &QQuickItem::windowChanged, this, &ReadingOrder::followWindow);
    followWindow();
    Q_EMIT rowsChanged();
}

void ReadingOrder::followWindow() {
    disconnect(m_frames);
    // After each frame: whatever brings rows elsewhere asks for one, and a list places its rows
    // only as the frame is made.
    if (m_rows && m_rows->window())
        m_frames =
            connect(m_rows->window(), &QQuickWindow::frameSwapped, this, &ReadingOrder::sort);
}

void ReadingOrder::sort() const {
    if (!m_rows || !QAccessible::isActive())
        return;
    QList<QQuickItem*> rows = m_rows->childItems();
    rows.removeIf([](const QQuickItem* row) { return !row->isVisible(); });
    if (std::ranges::is_sorted(rows, standsBefore))
        return;
    std::ranges::stable_sort(rows, standsBefore);
    for (qsizetype at = 1; at < rows.size(); ++at)
        rows[at]->stackAfter(rows[at - 1]);
}

} // namespace wendlow

#include "moc_ReadingOrder.cpp"
