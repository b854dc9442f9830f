#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace wendlow {

/// What is to be said aloud although nothing on the screen has taken the focus for it: that there
/// are results, that something was copied. The window in front says it (see Announcer.qml). One per
/// QML engine; belongs to the UI thread.
class Speech : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    Q_INVOKABLE void say(const QString& words) {
        if (!words.isEmpty())
            Q_EMIT said(words);
    }

Q_SIGNALS:
    void said(const QString& words);
};

} // namespace wendlow
