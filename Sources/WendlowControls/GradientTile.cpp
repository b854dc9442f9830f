#include "GradientTile.h"

#include <QLinearGradient>
#include <QPainter>

namespace wendlow {

void GradientTile::setFrom(const QColor& from) {
    if (m_from == from) {
        return;
    }
    m_from = from;
    redraw();
    Q_EMIT fromChanged();
}

void GradientTile::setTo(const QColor& to) {
    if (m_to == to) {
        return;
    }
    m_to = to;
    redraw();
    Q_EMIT toChanged();
}

void GradientTile::setRadius(qreal radius) {
    if (m_radius == radius) {
        return;
    }
    m_radius = radius;
    redraw();
    Q_EMIT radiusChanged();
}

QImage GradientTile::draw(QSizeF size, qreal pixelRatio) const {
    QImage picture((size * pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull()) {
        return {};
    }
    picture.fill(Qt::transparent);
    QLinearGradient shade(0, 0, 0, picture.height());
    shade.setColorAt(0, m_from);
    shade.setColorAt(1, m_to);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(shade);
    painter.drawRoundedRect(picture.rect(), m_radius * pixelRatio, m_radius * pixelRatio);
    return picture;
}

} // namespace wendlow

#include "moc_GradientTile.cpp"
