#include "WindowPlacing.h"

#include <algorithm>

namespace wendlow::WindowPlacing {

QPoint centred(QSize size, QRect screen) {
    const QPoint middle(screen.left() + (screen.width() - size.width()) / 2,
                        screen.top() + (screen.height() - size.height()) / 2);
    return {std::max(middle.x(), screen.left()), std::max(middle.y(), screen.top())};
}

QPoint cascaded(QPoint origin, std::span<const QPoint> taken) {
    constexpr int steps = 5;
    constexpr QPoint step(24, 24); // the vertical axis points down here
    for (int count = 0; count < steps && std::ranges::find(taken, origin) != taken.end(); ++count)
        origin += step;
    return origin;
}

} // namespace wendlow::WindowPlacing
