#pragma once

#include <QQuickItem>
#include <QQuickWindow>
#include <QRectF>
#include <QStringList>

#include <vector>

namespace wendlow::testing {

/// Looks at everything in sight below an item, and tells what is wrong with where its words stand:
/// that some are cut and nothing tells the rest, are wider than their place, reach out of what they
/// stand on, or stand over other words or signs. Popups are looked at by themselves.
class WordsInPlace {
public:
    static QStringList faults(const QQuickItem& top) {
        WordsInPlace all;
        all.look(top);
        for (const QQuickItem* const item : top.window()->contentItem()->childItems())
            if (item->inherits("QQuickOverlay"))
                for (const QQuickItem* const popup : item->childItems())
                    all.look(*popup);
        return all.m_faults;
    }

private:
    struct Piece {
        const QQuickItem* item;
        QRectF seen;
        QString words; ///< empty: a sign
    };

    static bool isNamed(const QQuickItem& item, const char* type) {
        return QByteArrayView(item.metaObject()->className()).startsWith(type);
    }
    static bool isText(const QQuickItem& item) {
        return item.inherits("QQuickText") || item.inherits("QQuickTextEdit") ||
               item.inherits("QQuickTextInput");
    }
    /// Where its words are, in the scene.
    static QRectF rectOf(const QQuickItem& item) {
        if (item.inherits("QQuickTextInput"))
            return item.mapRectToScene(QRectF(0, 0, item.width(), item.height())
                                           .adjusted(item.property("leftPadding").toReal(), 0,
                                                     -item.property("rightPadding").toReal(), 0));
        const qreal width = item.property("contentWidth").toReal();
        const int side = item.property("effectiveHorizontalAlignment").toInt();
        const qreal left = side == Qt::AlignRight     ? item.width() - width
                           : side == Qt::AlignHCenter ? (item.width() - width) / 2
                                                      : 0;
        const qreal height = item.property("contentHeight").toReal();
        const int stands = item.property("verticalAlignment").toInt();
        const qreal top = stands == Qt::AlignVCenter  ? (item.height() - height) / 2
                          : stands == Qt::AlignBottom ? item.height() - height
                                                      : 0;
        return item.mapRectToScene(QRectF(left, top, width, height));
    }
    /// Whether something that the words stand in has a tooltip.
    static bool isTold(const QQuickItem& item) {
        const QQuickItem* up = &item;
        for (int steps = 0; up && steps < 4; ++steps, up = up->parentItem())
            for (const QQuickItem* const child : up->childItems())
                if (isNamed(*child, "Hint_") && !child->property("text").toString().isEmpty())
                    return true;
        return false;
    }

    void look(const QQuickItem& top) {
        m_pieces.clear();
        gather(top, QRectF({}, QSizeF(top.window()->size())));
        for (auto one = m_pieces.begin(); one != m_pieces.end(); ++one)
            for (auto other = one + 1; other != m_pieces.end(); ++other)
                if (!(one->words.isEmpty() && other->words.isEmpty()) &&
                    one->seen.intersects(other->seen))
                    tell(*one, QStringLiteral("stands over “%1”").arg(nameOf(*other)));
    }

    void gather(const QQuickItem& item, QRectF clip) {
        if (!item.isVisible() || item.opacity() < 0.01)
            return;
        if (item.clip())
            clip &= item.mapRectToScene(item.boundingRect());
        const QString words = isText(item) ? item.property("text").toString() : QString();
        if (!words.isEmpty() || isNamed(item, "wendlow::Icon") || isNamed(item, "SwitchFace_")) {
            const QRectF whole =
                isText(item) ? rectOf(item) : item.mapRectToScene(item.boundingRect());
            // Neighbours may touch.
            const Piece piece{&item, (whole & clip).adjusted(1, 1, -1, -1), words};
            if (!piece.seen.isEmpty()) {
                if (!words.isEmpty())
                    judge(piece, whole, clip);
                m_pieces.push_back(piece);
            }
        }
        for (const QQuickItem* const child : item.childItems())
            gather(*child, clip);
    }

    void judge(const Piece& piece, const QRectF& whole, const QRectF& clip) {
        const QQuickItem& item = *piece.item;
        if (item.property("truncated").toBool() && !isTold(item))
            tell(piece, QStringLiteral("is cut and nothing tells the rest"));
        if (!item.inherits("QQuickTextInput") && whole.width() > item.width() + 1)
            tell(piece, QStringLiteral("is wider than its place"));
        if (whole.left() < clip.left() - 1 || whole.right() > clip.right() + 1)
            tell(piece, QStringLiteral("is cut off at the side"));
        for (const QQuickItem* up = item.parentItem(); up; up = up->parentItem()) {
            // What scrolls may be half in sight.
            if (up->inherits("QQuickFlickable") && up->clip())
                break;
            if (!up->inherits("QQuickControl") && !up->inherits("QQuickRectangle"))
                continue;
            const QRectF ground = up->mapRectToScene(up->boundingRect());
            if (whole.top() < ground.top() - 1 || whole.bottom() > ground.bottom() + 1)
                tell(piece, QStringLiteral("reaches out of ") +
                                QString::fromUtf8(up->metaObject()->className()));
            break;
        }
    }

    static QString nameOf(const Piece& piece) {
        return piece.words.isEmpty() ? piece.item->property("name").toString() : piece.words;
    }
    void tell(const Piece& piece, const QString& what) {
        m_faults.append(QStringLiteral("“%1” %2").arg(nameOf(piece), what));
    }

    std::vector<Piece> m_pieces;
    QStringList m_faults;
};

} // namespace wendlow::testing
