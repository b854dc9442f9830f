#include "SiteIcon.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>

#include <algorithm>
#include <array>

namespace wendlow::SiteIcon {

namespace {

constexpr std::size_t mostBytes = 1 << 18;
constexpr int mostPixels = 512; ///< of a side

/// What only draws, and neither scripts nor refers to anything else.
bool isForm(const QByteArray& format) {
    static constexpr std::array forms{"png", "ico", "gif", "jpeg", "jpg"};
    return std::ranges::any_of(forms, [&](const char* form) { return format == form; });
}

bool isSmall(const QSize& size) {
    return size.width() <= mostPixels && size.height() <= mostPixels;
}

} // namespace

QImage picture(std::string_view bytes) {
    if (bytes.empty() || bytes.size() > mostBytes)
        return {};
    QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer);
    // Before anything is unpacked: a few bytes can be a picture of a wall.
    if (!isForm(reader.format()) || !isSmall(reader.size()))
        return {};
    QImage image = reader.read();
    return isSmall(image.size()) ? image : QImage();
}

} // namespace wendlow::SiteIcon
