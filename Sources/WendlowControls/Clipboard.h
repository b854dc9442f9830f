#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace wendlow {

/// The clipboard of the desktop, for a control that copies. Belongs to the UI thread.
class Clipboard : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Gives whether there was anything to copy.
    Q_INVOKABLE static bool copy(const QString& text);
};

} // namespace wendlow
