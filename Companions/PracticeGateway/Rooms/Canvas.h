#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace wendlow {

struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    /// Towards `other`; a `share` of 0 is this colour, of 1 the other.
    Colour towards(Colour other, double share) const;
    /// A clear colour of this hue, 0 to 360.
    static Colour ofHue(double hue);
};

/// A small picture of filled boxes. It is drawn in units of its own, 320 to the whole width, so
/// that the same strokes give it in any size.
class Canvas {
public:
    static constexpr double unitsAcross = 320;

    Canvas(int width, int height, Colour ground);

    double unitsDown() const { return unitsAcross * m_height / m_width; }

    /// What lies outside is cut off.
    void box(double left, double top, double width, double height, Colour colour);
    /// The same, going over from one colour at the top to another at the bottom.
    void fade(double left, double top, double width, double height, Colour from, Colour to);

    /// The picture's file.
    std::string png() const;

private:
    int pixel(double units, int end) const;

    int m_width;
    int m_height;
    std::vector<Colour> m_pixels;
};

} // namespace wendlow
