#pragma once

#include "TranslationContext.h"

namespace wendlow {

/// The door of what this module says.
constexpr TranslationContext say{"WendlowJourney"};

} // namespace wendlow
