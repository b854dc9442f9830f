#pragma once

#include "MainMenu.h"
#include "WindowDescription.h"

#include <QObject>
#include <QString>
#include <QVariantMap>
#include <QWindow>

#include <functional>
#include <map>
#include <memory>

class QQmlEngine;
class QQuickItem;

namespace wendlow {

class ThemeSource;

/// Makes the windows out of their QML. A fault in the QML is a fault in the program: it is told on
/// standard error and ends the process with status 70. UI thread; must outlive its windows.
class WindowFactory final : public QObject {
    Q_OBJECT

public:
    /// A QML file and what is given to it.
    struct Content {
        QString file; ///< "WendlowSettings/SettingsFace.qml": module and file
        QVariantMap properties;
    };
    using ContentOf = std::function<Content(WindowKind)>;
    enum class Darkness { asSystem, always };
    /// Makes an engine's looks follow the system, but for the darkness where that is fixed.
    using FollowLooks = std::function<void(ThemeSource&, Darkness)>;

    WindowFactory(MainMenu& mainMenu, ContentOf contentOf, FollowLooks followLooks);
    ~WindowFactory() override;

    /// A hidden window of the kind with its content, neither dressed nor placed.
    std::unique_ptr<QWindow> make(WindowKind kind);
    /// Puts content from the beginning into a window that `make` gave for the kind.
    void renew(QWindow& window, WindowKind kind);
    /// Takes the content out of a window that `make` gave. It is gone once control is back in the
    /// event loop.
    static void empty(QWindow& window);
    /// The panel that tells name, version and licences.
    std::unique_ptr<QWindow> makeAbout();
    /// The sheet of the keys.
    std::unique_ptr<QWindow> makeShortcuts();
    /// The looks of the windows that follow the system.
    ThemeSource& looks();
    /// The looks of the windows of a kind.
    ThemeSource& looksOf(WindowKind kind);

Q_SIGNALS:
    /// Something in the QML is not as it should be, and it goes on.
    void warned(const QString& words);

private:
    /// Windows that have looks of their own have an engine of their own, for looks belong to it.
    QQmlEngine& engineFor(WindowKind kind);
    QQmlEngine& mainEngine();
    std::unique_ptr<QQmlEngine> makeEngine(Darkness darkness);
    static QObject* create(QQmlEngine& engine, const QString& file, const QVariantMap& properties);
    static std::unique_ptr<QWindow> createWindow(QQmlEngine& engine, const QString& file,
                                                 const QVariantMap& properties);

    MainMenu& m_mainMenu;
    const ContentOf m_contentOf;
    const FollowLooks m_followLooks;
    std::unique_ptr<QQmlEngine> m_engine;
    std::map<WindowKind, std::unique_ptr<QQmlEngine>> m_ownEngines;
};

} // namespace wendlow
