#pragma once

#include "DrawnItem.h"

#include <QColor>
#include <QtQml/qqmlregistration.h>

namespace wendlow {

/// One symbol of the icon table in one colour, crisp at the window's pixel density. Draws nothing
/// for a name that the table has not. It says nothing to a screen reader: what it stands in names
/// itself.
// The base is named in full: the tool that writes the types for the linter does not look names up.
class Icon : public wendlow::DrawnItem {
    Q_OBJECT
    QML_ELEMENT
    /// The symbol's name, see IconDrawing.
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged FINAL)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged FINAL)
    /// Both sides in logical pixels, 16 unless set; becomes the implicit size.
    Q_PROPERTY(int size READ size WRITE setSize NOTIFY sizeChanged FINAL)

public:
    explicit Icon(QQuickItem* parent = nullptr);

    [[nodiscard]] QString name() const { return m_name; }
    void setName(const QString& name);

    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor& color);

    [[nodiscard]] int size() const { return m_size; }
    void setSize(int size);

Q_SIGNALS:
    void nameChanged();
    void colorChanged();
    void sizeChanged();

protected:
    QImage draw(QSizeF size, qreal pixelRatio) const override;

private:
    QString m_name;
    QColor m_color = Qt::black;
    int m_size = 16;
};

} // namespace wendlow
