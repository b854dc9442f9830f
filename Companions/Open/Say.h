#pragma once

#include "TranslationContext.h"

namespace wendlow {

/// The door of what this program says.
constexpr TranslationContext say{"WendlowOpen"};

} // namespace wendlow
