#include "WindowFactory.h"

#include "AboutWords.h"
#include "ClientInstance.h"
#include "HeldKeys.h"
#include "ShortcutPlaces.h"
#include "ThemeSource.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlError>
#include <QQuickItem>

#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace wendlow {

namespace {

constexpr int softwareFault = 70;

[[noreturn]] void endOnFault(const QString& file, const QString& reason) {
    fmt::print(stderr, "wendlow-settings: the interface file {} is faulty:\n{}\n",
               file.toStdString(), reason.toStdString());
    // Not `exit`: it would take the toolkit apart below the feet of its own objects.
    std::_Exit(softwareFault);
}

} // namespace

WindowFactory::WindowFactory(MainMenu& mainMenu, ContentOf contentOf, FollowLooks followLooks)
    : m_mainMenu(mainMenu), m_contentOf(std::move(contentOf)),
      m_followLooks(std::move(followLooks)) {}

WindowFactory::~WindowFactory() = default;

std::unique_ptr<QWindow> WindowFactory::make(WindowKind kind) {
    auto window = createWindow(engineFor(kind), QStringLiteral("WendlowSettingsApp/AppWindow.qml"),
                               {{QStringLiteral("mainMenu"), QVariant::fromValue(&m_mainMenu)}});
    renew(*window, kind);
    return window;
}

void WindowFactory::renew(QWindow& window, WindowKind kind) {
    const Content content = m_contentOf(kind);
    QObject* const made = create(engineFor(kind), content.file, content.properties);
    auto* const item = qobject_cast<QQuickItem*>(made);
    if (!item)
        endOnFault(content.file, QStringLiteral("it is no item"));
    item->setParent(&window);
    // What C++ has made cannot be destroyed from QML otherwise, and the window ends its content
    // there.
    QQmlEngine::setObjectOwnership(item, QQmlEngine::JavaScriptOwnership);
    QMetaObject::invokeMethod(&window, "fill", Q_ARG(QQuickItem*, item));
}

void WindowFactory::empty(QWindow& window) {
    QMetaObject::invokeMethod(&window, "empty");
}

std::unique_ptr<QWindow> WindowFactory::makeAbout() {
    return createWindow(
        mainEngine(), QStringLiteral("WendlowSettingsApp/AboutWindow.qml"),
        {{QStringLiteral("productName"), QString::fromUtf8(ClientInstance::productName)},
         {QStringLiteral("version"), AboutWords::version()},
         {QStringLiteral("parts"), AboutWords::parts()}});
}

std::unique_ptr<QWindow> WindowFactory::makeShortcuts() {
    return createWindow(mainEngine(), QStringLiteral("WendlowSettingsApp/ShortcutsWindow.qml"),
                        {{QStringLiteral("places"), ShortcutPlaces::all()}});
}

ThemeSource& WindowFactory::looks() {
    return *ThemeSource::of(mainEngine());
}

ThemeSource& WindowFactory::looksOf(WindowKind kind) {
    return *ThemeSource::of(engineFor(kind));
}

QQmlEngine& WindowFactory::engineFor(WindowKind kind) {
    const WindowDescription& description = WindowDescriptions::of(kind);
    if (!description.alwaysDark && !description.ownLooks)
        return mainEngine();
    auto& engine = m_ownEngines[kind];
    if (!engine)
        engine = makeEngine(description.alwaysDark ? Darkness::always : Darkness::asSystem);
    return *engine;
}

QQmlEngine& WindowFactory::mainEngine() {
    if (!m_engine)
        m_engine = makeEngine(Darkness::asSystem);
    return *m_engine;
}

std::unique_ptr<QQmlEngine> WindowFactory::makeEngine(Darkness darkness) {
    auto engine = std::make_unique<QQmlEngine>();
    engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    connect(engine.get(), &QQmlEngine::warnings, this, [this](const QList<QQmlError>& warnings) {
        for (const QQmlError& warning : warnings)
            Q_EMIT warned(warning.toString());
    });
    ThemeSource* const looks = ThemeSource::of(*engine);
    if (!looks)
        endOnFault(QStringLiteral("WendlowControls/qmldir"), QStringLiteral("it is not there"));
    m_followLooks(*looks, darkness);
    return engine;
}

QObject* WindowFactory::create(QQmlEngine& engine, const QString& file,
                               const QVariantMap& properties) {
    QQmlComponent component(&engine, QUrl(QStringLiteral("qrc:/qt/qml/") + file));
    // Asked to create what it could not load, a component crashes.
    QObject* const made =
        component.isReady() ? component.createWithInitialProperties(properties) : nullptr;
    if (!made || component.isError())
        endOnFault(file, component.errorString());
    return made;
}

std::unique_ptr<QWindow> WindowFactory::createWindow(QQmlEngine& engine, const QString& file,
                                                     const QVariantMap& properties) {
    QObject* const made = create(engine, file, properties);
    auto* const window = qobject_cast<QWindow*>(made);
    if (!window)
        endOnFault(file, QStringLiteral("it is no window"));
    HeldKeys::pressOnceIn(*window);
    return std::unique_ptr<QWindow>(window);
}

} // namespace wendlow

#include "moc_WindowFactory.cpp"
