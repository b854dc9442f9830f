#pragma once

#include "DrawnItem.h"

#include <QImage>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

namespace wendlow {

/// A site's icon, scaled into its item. It says nothing to a screen reader: the row names the site.
// The base is named in full: the tool that writes the types for the linter does not look names up.
class SitePicture : public wendlow::DrawnItem {
    Q_OBJECT
    QML_ELEMENT
    /// A `QImage`, for which QML has no type.
    Q_PROPERTY(QVariant picture READ picture WRITE setPicture NOTIFY pictureChanged FINAL)
    /// Nothing to draw.
    Q_PROPERTY(bool empty READ isEmpty NOTIFY pictureChanged FINAL)

public:
    explicit SitePicture(QQuickItem* parent = nullptr) : DrawnItem(parent) {}

    QVariant picture() const { return m_picture; }
    void setPicture(const QVariant& picture);
    bool isEmpty() const { return m_picture.isNull(); }

Q_SIGNALS:
    void pictureChanged();

protected:
    QImage draw(QSizeF size, qreal pixelRatio) const override;

private:
    QImage m_picture;
};

} // namespace wendlow
