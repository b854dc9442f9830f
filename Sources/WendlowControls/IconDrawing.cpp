#include "IconDrawing.h"

#include <array>
#include <utility>

#include <QCache>
#include <QFile>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace wendlow::IconDrawing {

namespace {

// Names of the platform's symbol set, and names by meaning, for the drawings that stand for them. A
// drawing's own name needs no line here.
constexpr std::array aliases{
    std::pair{"chevron.left.forwardslash.chevron.right", "terminal"},
    std::pair{"cpu.fill", "cpu"},
    std::pair{"cursorarrow.rays", "app"},
    std::pair{"doc.text", "doc"},
    std::pair{"doc.text.fill", "doc"},
    std::pair{"exclamationmark.triangle", "warn"},
    std::pair{"gearshape.fill", "sliders"},
    std::pair{"hand.raised.fill", "sliders"},
    std::pair{"key.fill", "key"},
    std::pair{"lock.fill", "lock"},
    std::pair{"lock.shield.fill", "shield"},
    std::pair{"person.2", "people"},
    std::pair{"person.2.fill", "people"},
    std::pair{"powerplug", "plug"},
    std::pair{"powerplug.fill", "plug"},
    std::pair{"record.circle", "record"},
    std::pair{"scroll.fill", "scroll"},
    std::pair{"slider.horizontal.3", "sliders"},
    std::pair{"square.grid.2x2.fill", "grid"},
    std::pair{"square.stack.3d.down.right", "stack"},
};

// Ink is black and a hole is white in the drawings: with premultiplied pixels, what is opaque but
// not white is ink, whatever lies below.
QImage inked(const QImage& drawing, const QColor& ink) {
    QImage result(drawing.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < drawing.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(drawing.constScanLine(y));
        auto* to = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < drawing.width(); ++x) {
            const int coverage = qAlpha(from[x]) - qRed(from[x]);
            to[x] = qPremultiply(
                qRgba(ink.red(), ink.green(), ink.blue(), coverage * ink.alpha() / 255));
        }
    }
    return result;
}

QString path(const QString& drawing) {
    return u":/qt/qml/WendlowControls/icons/"_s + drawing + u".svg"_s;
}

} // namespace

QString forSymbol(const QString& symbol) {
    if (symbol.isEmpty()) {
        return {};
    }
    for (const auto& [alias, drawing] : aliases) {
        if (symbol == QLatin1StringView(alias)) {
            return QString::fromLatin1(drawing);
        }
    }
    return QFile::exists(path(symbol)) ? symbol : QString();
}

QImage image(const QString& symbol, int pixels, const QColor& ink) {
    static QCache<QString, QImage> kept(200);
    const QString key = u"%1 %2 %3"_s.arg(symbol).arg(pixels).arg(ink.rgba());
    if (const QImage* known = kept.object(key)) {
        return *known;
    }
    const QString drawing = forSymbol(symbol);
    if (drawing.isEmpty() || pixels <= 0) {
        return {};
    }
    QSvgRenderer renderer(path(drawing));
    QImage canvas(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    renderer.render(&painter);
    painter.end();
    const QImage result = inked(canvas, ink);
    kept.insert(key, new QImage(result));
    return result;
}

} // namespace wendlow::IconDrawing
