#pragma once

#include <QImage>
#include <QSize>

#include <string>

/// From the bytes of an encoded picture to what is drawn. The bytes come from another process and
/// may be anything. May be called on any thread, and is meant for others than that of the window.
namespace wendlow::TileDecoder {

/// As it is drawn in a cell.
struct Tile {
    QImage picture; ///< fills the cell, its corners round; null: the bytes are no picture
    QImage poster;  ///< the same, small enough to be kept long
};

/// The whole picture; null for what is none, or is one that no screen could have given.
QImage whole(const std::string& bytes);
/// `size` and `radius` are of the cell, in the pixels of the screen.
Tile tile(const std::string& bytes, QSize size, double radius);
/// The same picture as PNG; the bytes themselves where they are. Empty for no picture.
std::string png(const std::string& bytes);

} // namespace wendlow::TileDecoder
