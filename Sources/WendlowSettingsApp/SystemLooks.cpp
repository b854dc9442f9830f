#include "SystemLooks.h"

#include "Appearance.h"
#include "ThemeSource.h"

namespace wendlow::SystemLooks {

void follow(const Appearance& appearance, ThemeSource& looks, WindowFactory::Darkness darkness) {
    QObject::connect(&appearance, &Appearance::reduceMotionChanged, &looks,
                     [&appearance, &looks] { looks.setReduceMotion(appearance.reduceMotion()); });
    looks.setReduceMotion(appearance.reduceMotion());
    if (darkness == WindowFactory::Darkness::always)
        return looks.setDark(true);
    QObject::connect(&appearance, &Appearance::darkChanged, &looks,
                     [&appearance, &looks] { looks.setDark(appearance.dark()); });
    looks.setDark(appearance.dark());
}

} // namespace wendlow::SystemLooks
