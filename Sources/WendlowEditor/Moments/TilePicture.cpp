#include "Moments/TilePicture.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <memory>
#include <utility>

namespace wendlow {

TilePicture::TilePicture(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

void TilePicture::setRoom(TileRoom* room) {
    if (m_room == room)
        return;
    if (m_room)
        disconnect(m_room, nullptr, this, nullptr);
    m_room = room;
    if (m_room)
        connect(m_room, &TileRoom::changed, this, [this](qint64 key) {
            const bool waited = m_image.isNull();
            if (m_key != key)
                return;
            look();
            if (waited && !m_image.isNull())
                Q_EMIT arrived();
        });
    look();
    Q_EMIT roomChanged();
}

QString TilePicture::key() const {
    return m_key ? QString::number(*m_key) : QString();
}

void TilePicture::setKey(const QString& key) {
    bool isNumber = false;
    const qlonglong number = key.toLongLong(&isNumber);
    const auto wanted = isNumber ? std::optional<std::int64_t>(number) : std::nullopt;
    if (std::exchange(m_key, wanted) == wanted)
        return;
    look();
    Q_EMIT keyChanged();
}

QSize TilePicture::naturalSize() const {
    return m_whole && m_room ? m_room->whole().size() : QSize();
}

void TilePicture::look() {
    QImage image = m_room && m_key ? m_room->picture(*m_key) : QImage();
    if (m_whole && m_room && !m_room->whole().isNull())
        image = m_room->whole();
    if (image.cacheKey() == m_image.cacheKey())
        return;
    const bool wasFilled = isFilled();
    m_image = std::move(image);
    m_imageIsNew = true;
    update();
    // A whole one has its own size.
    if (m_whole || wasFilled != isFilled())
        Q_EMIT filledChanged();
}

QSGNode* TilePicture::updatePaintNode(QSGNode* before, UpdatePaintNodeData* /*data*/) {
    std::unique_ptr<QSGNode> old(before);
    if (m_image.isNull() || width() <= 0 || height() <= 0)
        return nullptr;
    auto* node = static_cast<QSGImageNode*>(old.release());
    const bool isFirst = node == nullptr;
    if (isFirst) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
    }
    if (std::exchange(m_imageIsNew, false) || isFirst)
        node->setTexture(window()->createTextureFromImage(m_image));
    node->setRect(boundingRect());
    return node;
}

} // namespace wendlow

#include "moc_TilePicture.cpp"
