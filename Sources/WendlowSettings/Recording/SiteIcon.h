#pragma once

#include "DrawnItem.h"

#include <QByteArray>
#include <QImage>
#include <QtQmlIntegration/qqmlintegration.h>

namespace wendlow {

/// A small picture from bytes that somebody else has made, scaled to fit; draws nothing for bytes
/// that are none, and never a large one. UI thread.
// The base is named in full: the tool that writes the types for the linter does not look names up.
class SiteIcon : public wendlow::DrawnItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QByteArray bytes READ bytes WRITE setBytes NOTIFY bytesChanged FINAL)
    /// The bytes are a picture.
    Q_PROPERTY(bool there READ isThere NOTIFY bytesChanged FINAL)

public:
    using DrawnItem::DrawnItem;

    const QByteArray& bytes() const { return m_bytes; }
    void setBytes(const QByteArray& bytes);
    bool isThere() const { return !m_picture.isNull(); }

Q_SIGNALS:
    void bytesChanged();

protected:
    QImage draw(QSizeF size, qreal pixelRatio) const override;

private:
    QByteArray m_bytes;
    QImage m_picture;
};

} // namespace wendlow
