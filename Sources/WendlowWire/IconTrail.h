#pragma once

#include "FrontRecording.h"

namespace wendlow {

/// The state of the menu's icon.
enum class IconTrail { alert, solid, hollow };

namespace IconTrails {

/// An alert goes before everything; else the icon is solid while the front window is recorded in
/// full.
constexpr IconTrail decide(bool alert, FrontRecording front) {
    if (alert)
        return IconTrail::alert;
    return front == FrontRecording::full ? IconTrail::solid : IconTrail::hollow;
}

} // namespace IconTrails
} // namespace wendlow
