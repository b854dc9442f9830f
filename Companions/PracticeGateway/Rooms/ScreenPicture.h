#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Pictures that look like a screen seen from afar, as PNG. The same name always gives the same
/// picture.
namespace wendlow::ScreenPicture {

enum class Style : std::uint8_t { code, page, talk, paper };
enum class Extent : std::uint8_t { screen, window };
enum class Size : std::uint8_t {
    thumbnail, ///< 320 x 200
    whole      ///< 1280 x 800
};

std::string draw(std::string_view name, Style style, Extent extent, Size size);

/// A site's icon, 32 x 32.
std::string icon(std::string_view host);

} // namespace wendlow::ScreenPicture
