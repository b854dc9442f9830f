#pragma once

#include "WindowFactory.h"

namespace wendlow {

class Appearance;

namespace SystemLooks {

/// Makes an engine's looks what the person has chosen for their desktop, now and from now on.
/// `appearance` must outlive `looks`.
void follow(const Appearance& appearance, ThemeSource& looks, WindowFactory::Darkness darkness);

} // namespace SystemLooks

} // namespace wendlow
