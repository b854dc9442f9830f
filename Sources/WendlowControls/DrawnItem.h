#pragma once

#include <QImage>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace wendlow {

/// An item whose picture is drawn by code at the window's pixel density and kept as one texture.
/// Works with and without graphics hardware alike.
class DrawnItem : public QQuickItem {
    Q_OBJECT
    QML_ANONYMOUS

public:
    explicit DrawnItem(QQuickItem* parent = nullptr);

protected:
    /// The picture for an item of this size in logical pixels; null draws nothing. Runs while the
    /// scene graph holds the UI thread.
    virtual QImage draw(QSizeF size, qreal pixelRatio) const = 0;

    /// The picture is no longer true.
    void redraw();

    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;

private:
    bool m_stale = true;
};

} // namespace wendlow
