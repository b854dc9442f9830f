#include "Recording/SiteIcon.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>

namespace wendlow {

namespace {

/// Of a site's icon nobody needs more, and what says it is larger may be made to fill the memory.
constexpr int largestSide = 512;

QImage pictureIn(const QByteArray& bytes) {
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    // A drawing has no size of its own, and may take its time.
    const bool fits = size.isValid() && std::max(size.width(), size.height()) <= largestSide;
    return fits && reader.format() != "svg" ? reader.read() : QImage();
}

} // namespace

void SiteIcon::setBytes(const QByteArray& bytes) {
    if (m_bytes == bytes)
        return;
    m_bytes = bytes;
    m_picture = bytes.isEmpty() ? QImage() : pictureIn(bytes);
    redraw();
    Q_EMIT bytesChanged();
}

QImage SiteIcon::draw(QSizeF size, qreal pixelRatio) const {
    if (m_picture.isNull())
        return {};
    return m_picture.scaled((size * pixelRatio).toSize(), Qt::KeepAspectRatio,
                            Qt::SmoothTransformation);
}

} // namespace wendlow

#include "moc_SiteIcon.cpp"
