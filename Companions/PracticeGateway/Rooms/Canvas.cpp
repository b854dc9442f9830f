#include "Canvas.h"

#include <algorithm>
#include <cmath>

#include <png.h>

namespace wendlow {

Colour Colour::towards(Colour other, double share) const {
    const auto mixed = [share](std::uint8_t from, std::uint8_t to) {
        return static_cast<std::uint8_t>(std::lround(from + (to - from) * share));
    };
    return {mixed(red, other.red), mixed(green, other.green), mixed(blue, other.blue)};
}

Colour Colour::ofHue(double hue) {
    const auto part = [hue](double shift) {
        const double place = std::fmod(hue / 60 + shift, 6);
        const double light = std::clamp(std::abs(place - 3) - 1, 0.0, 1.0);
        return static_cast<std::uint8_t>(std::lround(60 + 150 * light));
    };
    return {part(0), part(4), part(2)};
}

Canvas::Canvas(int width, int height, Colour ground)
    : m_width(width), m_height(height),
      m_pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), ground) {}

int Canvas::pixel(double units, int end) const {
    return std::clamp(static_cast<int>(std::lround(units * m_width / unitsAcross)), 0, end);
}

void Canvas::box(double left, double top, double width, double height, Colour colour) {
    fade(left, top, width, height, colour, colour);
}

void Canvas::fade(double left, double top, double width, double height, Colour from, Colour to) {
    const int first = pixel(left, m_width);
    const int last = pixel(left + width, m_width);
    const int begin = pixel(top, m_height);
    const int end = pixel(top + height, m_height);
    for (int row = begin; row < end; ++row) {
        const Colour colour = from.towards(to, static_cast<double>(row - begin) / (end - begin));
        const auto line = m_pixels.begin() + static_cast<std::ptrdiff_t>(row) * m_width;
        std::fill(line + first, line + std::max(first, last), colour);
    }
}

std::string Canvas::png() const {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(m_width);
    image.height = static_cast<png_uint_32>(m_height);
    image.format = PNG_FORMAT_RGB;
    image.flags = PNG_IMAGE_FLAG_FAST;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::string file(size, '\0');
    if (png_image_write_to_memory(&image, file.data(), &size, 0, m_pixels.data(), 0, nullptr) == 0)
        size = 0;
    file.resize(size);
    return file;
}

} // namespace wendlow
