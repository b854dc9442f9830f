#pragma once

#include "QtTranslationContext.h"

namespace wendlow {

/// The door of what this module says.
constexpr QtTranslationContext say{"WendlowOnboarding"};

} // namespace wendlow
