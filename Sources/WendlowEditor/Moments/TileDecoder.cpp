#include "Moments/TileDecoder.h"

#include <QBuffer>
#include <QByteArray>
#include <QByteArrayView>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace wendlow {

namespace {

/// Of a picture's side: more is no screen's. A small file may say that it is a large picture, and
/// would take the memory of one.
constexpr int longestSide = 16'384;
constexpr qint64 mostPixels = 50'000'000;
constexpr int posterParts = 4; ///< a poster is so many times smaller

constexpr QByteArrayView signature("\x89PNG\r\n\x1a\n", 8);

QByteArray view(const std::string& bytes) {
    return QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

/// Formats that are made of pixels; others could draw for hours.
bool isOfPixels(const QByteArray& format) {
    constexpr const char* formats[] = {"png", "jpeg", "jpg", "webp", "heic", "heif", "bmp"};
    return std::ranges::any_of(formats, [&](const char* name) { return format == name; });
}

QImage rounded(const QImage& square, double radius) {
    QImage round(square.size(), QImage::Format_ARGB32_Premultiplied);
    round.fill(Qt::transparent);
    QPainter painter(&round);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outline;
    outline.addRoundedRect(QRectF(round.rect()), radius, radius);
    painter.fillPath(outline, QBrush(square));
    return round;
}

/// The middle of the picture in this size.
QImage covering(const QImage& whole, QSize size) {
    const QSize scaled = whole.size().scaled(size, Qt::KeepAspectRatioByExpanding);
    const QImage fitting = whole.scaled(scaled, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    // What a window has at its top says more than what it has at its bottom.
    return fitting.copy((scaled.width() - size.width()) / 2, 0, size.width(), size.height());
}

} // namespace

QImage TileDecoder::whole(const std::string& bytes) {
    QByteArray raw = view(bytes);
    QBuffer buffer(&raw);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    if (!reader.canRead() || !isOfPixels(reader.format()))
        return {};
    const QSize size = reader.size();
    if (size.isEmpty() || std::max(size.width(), size.height()) > longestSide ||
        qint64(size.width()) * size.height() > mostPixels)
        return {};
    reader.setAutoTransform(true);
    return reader.read();
}

TileDecoder::Tile TileDecoder::tile(const std::string& bytes, QSize size, double radius) {
    const QImage picture = whole(bytes);
    if (picture.isNull() || size.isEmpty())
        return {};
    const QImage square = covering(picture, size);
    const QSize small = (size / posterParts).expandedTo({1, 1});
    return {.picture = rounded(square, radius),
            .poster = rounded(square.scaled(small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation),
                              radius / posterParts)};
}

std::string TileDecoder::png(const std::string& bytes) {
    const QImage picture = whole(bytes);
    if (picture.isNull() || QByteArrayView(bytes).startsWith(signature))
        return picture.isNull() ? std::string() : bytes;
    QByteArray written;
    QBuffer buffer(&written);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return written.toStdString();
}

} // namespace wendlow
