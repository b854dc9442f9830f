#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

namespace wendlow {

/// Which of the Editor's worlds is in force. The stores behind the worlds come with the Editor;
/// until then the plain stage of its window names the world. UI thread.
class EditorWorlds final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the worlds and hands them to the Editor.")
    Q_PROPERTY(QString title READ currentTitle NOTIFY worldChanged)

public:
    enum class World { dayZero, someData, powerUser, realData };

    explicit EditorWorlds(World world) : m_world(world) {}

    World world() const { return m_world; }
    void switchWorld(World world);
    /// Reads the current world afresh.
    void resetWorld() { Q_EMIT worldReset(); }

    /// As the World menu names it.
    static QString title(World world);
    QString currentTitle() const { return title(m_world); }

Q_SIGNALS:
    void worldChanged();
    void worldReset();

private:
    World m_world;
};

} // namespace wendlow
