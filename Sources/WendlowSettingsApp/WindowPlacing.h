#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <span>

namespace wendlow::WindowPlacing {

/// The origin at which a window of `size` stands in the middle of `screen`; never above or left of
/// it, so that the title bar of a large window stays in reach.
QPoint centred(QSize size, QRect screen);

/// Where a new window goes so that it does not cover another one exactly: down and to the right in
/// up to five steps of 24, while the origin is one of `taken`.
QPoint cascaded(QPoint origin, std::span<const QPoint> taken);

} // namespace wendlow::WindowPlacing
