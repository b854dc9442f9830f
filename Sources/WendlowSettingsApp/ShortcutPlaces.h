#pragma once

#include <QVariantList>

namespace wendlow::ShortcutPlaces {

/// The table of the keys as the sheet shows it: a list of maps with `place`, `lines` and `column`,
/// 0 or 1, so that both are about as long; a line is a map with `title` and `keys`, the words for
/// each way to press it.
QVariantList all();

} // namespace wendlow::ShortcutPlaces
