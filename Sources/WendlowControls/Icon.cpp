#include "Icon.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include "IconDrawing.h"

namespace wendlow {

Icon::Icon(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
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
    redraw();
    Q_EMIT sizeChanged();
}

void Icon::redraw() {
    m_stale = true;
    update();
}

void Icon::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange) {
        redraw();
    }
    QQuickItem::itemChange(change, data);
}

QSGNode* Icon::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    auto* node = static_cast<QSGImageNode*>(old);
    if (node == nullptr || m_stale) {
        const int pixels = qRound(m_size * window()->effectiveDevicePixelRatio());
        const QImage drawing = IconDrawing::image(m_name, pixels, m_color);
        if (drawing.isNull()) {
            delete node;
            return nullptr;
        }
        if (node == nullptr) {
            node = window()->createImageNode();
            node->setOwnsTexture(true);
            node->setFiltering(QSGTexture::Linear);
        }
        node->setTexture(window()->createTextureFromImage(drawing));
        m_stale = false;
    }
    node->setRect(0, 0, m_size, m_size);
    return node;
}

} // namespace wendlow
