#include "DrawnItem.h"

#include <QQuickWindow>
#include <QSGImageNode>

namespace wendlow {

DrawnItem::DrawnItem(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

void DrawnItem::redraw() {
    m_stale = true;
    update();
}

void DrawnItem::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange) {
        redraw();
    }
    QQuickItem::itemChange(change, data);
}

void DrawnItem::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    if (now.size() != before.size()) {
        redraw();
    }
}

QSGNode* DrawnItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    auto* node = static_cast<QSGImageNode*>(old);
    if (node != nullptr && !m_stale) {
        return node;
    }
    m_stale = false;
    const QImage picture = draw(size(), window()->effectiveDevicePixelRatio());
    if (picture.isNull()) {
        delete node;
        return nullptr;
    }
    if (node == nullptr) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
    }
    node->setTexture(window()->createTextureFromImage(picture));
    node->setRect(boundingRect());
    return node;
}

} // namespace wendlow

#include "moc_DrawnItem.cpp"
