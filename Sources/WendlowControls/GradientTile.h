#pragma once

#include "DrawnItem.h"

#include <QColor>
#include <QtQml/qqmlregistration.h>

namespace wendlow {

/// A rounded square with a gradient from top to bottom. Qt Quick's own rectangle has ragged corners
/// with a gradient when there is no graphics hardware.
class GradientTile : public wendlow::DrawnItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor from READ from WRITE setFrom NOTIFY fromChanged FINAL)
    Q_PROPERTY(QColor to READ to WRITE setTo NOTIFY toChanged FINAL)
    Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY radiusChanged FINAL)

public:
    using DrawnItem::DrawnItem;

    [[nodiscard]] QColor from() const { return m_from; }
    void setFrom(const QColor& from);

    [[nodiscard]] QColor to() const { return m_to; }
    void setTo(const QColor& to);

    [[nodiscard]] qreal radius() const { return m_radius; }
    void setRadius(qreal radius);

Q_SIGNALS:
    void fromChanged();
    void toChanged();
    void radiusChanged();

protected:
    QImage draw(QSizeF size, qreal pixelRatio) const override;

private:
    QColor m_from = Qt::black;
    QColor m_to = Qt::black;
    qreal m_radius = 0;
};

} // namespace wendlow
