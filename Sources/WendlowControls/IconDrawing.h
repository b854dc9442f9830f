#pragma once

#include <QColor>
#include <QImage>
#include <QString>

namespace wendlow::IconDrawing {

/// The drawing's name for a symbol name ("cpu.fill", "terminal", "warn"); empty when the table has
/// none.
QString forSymbol(const QString& symbol);

/// The symbol's drawing as a square of `pixels` device pixels, its ink in `ink` and its holes
/// clear. Null for an unknown symbol or no size. Drawings are kept, so that asking again costs a
/// look-up; call it from one thread at a time, as the scene graph does while it holds the UI
/// thread.
QImage image(const QString& symbol, int pixels, const QColor& ink);

} // namespace wendlow::IconDrawing
