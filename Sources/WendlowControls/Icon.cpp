#include "Icon.h"

#include "IconDrawing.h"

namespace wendlow {

Icon::Icon(QQuickItem* parent) : DrawnItem(parent) {
    setImplicitSize(m_size, m_size);
}

void Icon::setName(const QString& name) {
    if (m_name == name) {
        return;
    }
    m_name = name;
    redraw();
    Q_EMIT nameChanged();
}

void Icon::setColor(const QColor& color) {
    if (m_color == color) {
        return;
    }
    m_color = color;
    redraw();
    Q_EMIT colorChanged();
}

void Icon::setSize(int size) {
    if (m_size == size) {
        return;
    }
    m_size = size;
    setImplicitSize(size, size);
    Q_EMIT sizeChanged();
}

QImage Icon::draw(QSizeF size, qreal pixelRatio) const {
    return IconDrawing::image(m_name, qRound(size.width() * pixelRatio), m_color);
}

} // namespace wendlow

#include "moc_Icon.cpp"
