#include "SystemLooks.h"

#include "Appearance.h"
#include "ThemeSource.h"

#include <QGuiApplication>
#include <QScreen>

namespace wendlow::SystemLooks {

double textScaleLeft(double chosen, const QString& platform, double pixelRatio) {
    return platform == QLatin1StringView("xcb") ? chosen / pixelRatio : chosen;
}

void follow(const Appearance& appearance, ThemeSource& looks, WindowFactory::Darkness darkness,
            std::optional<double> textScale) {
    const auto scale = [&appearance, &looks, textScale] {
        looks.setTextScale(textScale.value_or(textScaleLeft(
            appearance.textScale(), QGuiApplication::platformName(), qGuiApp->devicePixelRatio())));
    };
    QObject::connect(&appearance, &Appearance::textScaleChanged, &looks, scale);
    // The density comes as a change of its own, and nothing tells it but that the screen has now
    // another number of pixels.
    QObject::connect(QGuiApplication::primaryScreen(), &QScreen::geometryChanged, &looks, scale);
    scale();
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
