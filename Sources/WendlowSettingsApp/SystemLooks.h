#pragma once

#include "WindowFactory.h"

#include <optional>

namespace wendlow {

class Appearance;

namespace SystemLooks {

/// Makes an engine's looks what the person has chosen for their desktop, now and from now on; but
/// for the size of words, where one is given. `appearance` must outlive `looks`.
void follow(const Appearance& appearance, ThemeSource& looks, WindowFactory::Darkness darkness,
            std::optional<double> textScale);

/// Of the size that the person has chosen for words, what is left to do here. Under X11 a desktop
/// tells that size as a density of the screen too, by which the toolkit makes everything larger.
double textScaleLeft(double chosen, const QString& platform, double pixelRatio);

} // namespace SystemLooks

} // namespace wendlow
