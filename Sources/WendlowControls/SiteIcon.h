#pragma once

#include <QImage>

#include <string_view>

namespace wendlow::SiteIcon {

/// The picture in the bytes that a site gives as its icon; null where they are none, of a form
/// that no site uses, or larger than an icon is.
QImage picture(std::string_view bytes);

} // namespace wendlow::SiteIcon
