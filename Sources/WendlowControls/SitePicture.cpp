#include "SitePicture.h"

#include <utility>

namespace wendlow {

void SitePicture::setPicture(const QVariant& picture) {
    auto image = picture.value<QImage>();
    if (m_picture == image)
        return;
    m_picture = std::move(image);
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

#include "moc_SitePicture.cpp"
