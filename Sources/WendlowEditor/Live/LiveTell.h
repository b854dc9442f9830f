#pragma once

#include "Store/EditorStore.h"

#include <functional>

namespace wendlow {

/// Tells the live store what one of its rooms has changed. That the generation has changed makes it
/// grow.
using LiveTell = std::function<void(EditorChanges what)>;

} // namespace wendlow
