#include "SitePicture.h"

namespace wendlow {

void SitePicture::setPicture(const QImage& picture) {
    if (m_picture == picture)
        return;
    m_picture = picture;
    redraw();
    Q_EMIT pictureChanged();
}

QImage SitePicture::draw(QSizeF size, qreal pixelRatio) const {
    if (m_picture.isNull())
        return {};
    return m_picture.scaled((size * pixelRatio).toSize(), Qt::IgnoreAspectRatio,
                            Qt::SmoothTransformation);
}

} // namespace wendlow
