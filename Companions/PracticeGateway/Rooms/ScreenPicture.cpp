#include "ScreenPicture.h"

#include <algorithm>
#include <array>

#include <fmt/format.h>

#include "Canvas.h"
#include "Fill/Content.h"

namespace wendlow::ScreenPicture {
namespace {

constexpr Colour black{16, 18, 24};
constexpr Colour white{255, 255, 255};
constexpr Colour ink{70, 76, 88};
constexpr Colour pale{226, 230, 236};

struct Area {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    double bottom() const { return top + height; }
};

double between(Content& content, double from, double to) {
    constexpr std::uint64_t steps = 1000;
    return from + (to - from) * static_cast<double>(content.below(steps)) / steps;
}

/// Words of one line, as bars.
void line(Canvas& canvas, Content& content, double left, double top, double width, Colour colour) {
    double at = left;
    const double end = left + width * between(content, 0.55, 1);
    while (at < end) {
        const double word = std::min(between(content, 4, 16), end - at);
        canvas.box(at, top, word, 1.6, colour);
        at += word + 2;
    }
}

void paragraph(Canvas& canvas, Content& content, const Area& area, Colour colour) {
    for (double top = area.top; top + 2 < area.bottom(); top += 4)
        if (!content.oneIn(7))
            line(canvas, content, area.left, top, area.width, colour);
}

void code(Canvas& canvas, Content& content, const Area& area, Colour accent) {
    canvas.box(area.left, area.top, area.width, area.height, black);
    canvas.box(area.left, area.top, 40, area.height, black.towards(white, 0.06));
    for (int row = 0; 6 + 7 * row < area.height - 4; ++row)
        canvas.box(area.left + 5, area.top + 6 + 7 * row, between(content, 12, 30), 1.6, ink);
    const std::array colours = {accent, accent.towards(white, 0.5), Colour{130, 170, 120},
                                Colour{150, 150, 165}};
    double indent = 0;
    for (int row = 0; 6 + 4 * row < area.height - 4; ++row) {
        const double top = area.top + 6 + 4 * row;
        indent = std::clamp(indent + (static_cast<double>(content.below(3)) - 1) * 6, 0.0, 36.0);
        if (content.oneIn(6))
            continue;
        double at = area.left + 48 + indent;
        for (std::uint64_t word = 1 + content.below(5); word > 0; --word) {
            const double width = between(content, 5, 24);
            canvas.box(at, top, std::min(width, area.left + area.width - at - 4), 1.6,
                       content.pick(std::span<const Colour>(colours)));
            at = std::min(at + width + 2.5, area.left + area.width - 5);
        }
    }
}

void page(Canvas& canvas, Content& content, const Area& area, Colour accent) {
    canvas.box(area.left, area.top, area.width, area.height, white);
    canvas.box(area.left, area.top, area.width, 12, pale);
    canvas.box(area.left + 40, area.top + 3, area.width * 0.6, 6, white);
    canvas.fade(area.left, area.top + 12, area.width, 26, accent, accent.towards(white, 0.6));
    canvas.box(area.left + 16, area.top + 20, between(content, 60, 130), 6, white);
    const double column = area.width * 0.62;
    paragraph(canvas, content, {area.left + 16, area.top + 46, column, area.height - 52}, ink);
    const double side = area.left + column + 28;
    for (double top = area.top + 46; top + 30 < area.bottom(); top += 36)
        canvas.fade(side, top, area.width - column - 40, 30, accent.towards(white, 0.5),
                    accent.towards(white, 0.8));
}

void talk(Canvas& canvas, Content& content, const Area& area, Colour accent) {
    canvas.box(area.left, area.top, area.width, area.height, white);
    canvas.box(area.left, area.top, 64, area.height, accent.towards(black, 0.55));
    for (double top = area.top + 10; top + 4 < area.bottom(); top += 9)
        canvas.box(area.left + 8, top, between(content, 20, 46), 2, accent.towards(white, 0.6));
    for (double top = area.top + 10; top + 22 < area.bottom(); top += 26) {
        const double width = between(content, 70, area.width - 100);
        const bool own = content.oneIn(3);
        const double left = own ? area.left + area.width - width - 8 : area.left + 88;
        if (!own)
            canvas.box(area.left + 72, top, 11, 11, Colour::ofHue(between(content, 0, 360)));
        canvas.box(left, top, width, 20, own ? accent.towards(white, 0.7) : pale);
        paragraph(canvas, content, {left + 5, top + 5, width - 12, 13}, ink);
    }
}

void paper(Canvas& canvas, Content& content, const Area& area, Colour accent) {
    canvas.box(area.left, area.top, area.width, area.height, Colour{120, 124, 132});
    const Area sheet{area.left + area.width * 0.18, area.top + 8, area.width * 0.64, area.height};
    canvas.box(sheet.left, sheet.top, sheet.width, sheet.height - 8, white);
    canvas.box(sheet.left + 16, sheet.top + 14, sheet.width * 0.6, 5, accent);
    paragraph(canvas, content,
              {sheet.left + 16, sheet.top + 28, sheet.width - 32, sheet.height - 44}, ink);
}

void window(Canvas& canvas, Content& content, const Area& area, Style style, Colour accent) {
    canvas.box(area.left, area.top, area.width, 8, pale);
    constexpr std::array lights = {Colour{236, 106, 94}, Colour{244, 191, 79}, Colour{98, 197, 84}};
    double at = area.left + 4;
    for (const Colour& light : lights) {
        canvas.box(at, area.top + 2.5, 3, 3, light);
        at += 5;
    }
    const Area inside{area.left, area.top + 8, area.width, area.height - 8};
    switch (style) {
    case Style::code:
        return code(canvas, content, inside, accent);
    case Style::page:
        return page(canvas, content, inside, accent);
    case Style::talk:
        return talk(canvas, content, inside, accent);
    case Style::paper:
        return paper(canvas, content, inside, accent);
    }
}

} // namespace

std::string draw(std::string_view name, Style style, Extent extent, Size size) {
    Content content(fmt::format("screen {}", name));
    const Colour accent = Colour::ofHue(between(content, 0, 360));
    const Colour far = Colour::ofHue(between(content, 0, 360));
    Canvas canvas = size == Size::whole ? Canvas(1280, 800, white) : Canvas(320, 200, white);
    const double down = canvas.unitsDown();
    // Both extents take the same draws before the window, so that it looks the same in both.
    const Area place{between(content, 6, 34), between(content, 10, 20), between(content, 230, 280),
                     between(content, 140, 172)};
    if (extent == Extent::window) {
        window(canvas, content, {0, 0, Canvas::unitsAcross, down}, style, accent);
        return canvas.png();
    }
    canvas.fade(0, 0, Canvas::unitsAcross, down, accent.towards(black, 0.4),
                far.towards(white, 0.3));
    canvas.box(0, 0, Canvas::unitsAcross, 6, white.towards(accent, 0.15));
    canvas.box(place.left + 2, place.top + 3, place.width, place.height, black);
    window(canvas, content, place, style, accent);
    return canvas.png();
}

std::string icon(std::string_view host) {
    Content content(fmt::format("icon {}", host));
    const Colour colour = Colour::ofHue(between(content, 0, 360));
    Canvas canvas(32, 32, colour);
    const Colour mark = colour.towards(white, 0.85);
    constexpr double cell = Canvas::unitsAcross / 8;
    // Three columns and their mirror image: such a pattern reads as a sign.
    for (int row = 1; row < 7; ++row)
        for (int column = 1; column < 4; ++column)
            if (content.oneIn(2)) {
                canvas.box(column * cell, row * cell, cell, cell, mark);
                canvas.box((7 - column) * cell, row * cell, cell, cell, mark);
            }
    return canvas.png();
}

} // namespace wendlow::ScreenPicture
