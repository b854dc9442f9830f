#include "EditActions.h"
#include "SettingsDelegate.h"
#include "WorldMenu.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using ::testing::ElementsAre;

QStringList titles(const MainMenu& menu) {
    QStringList list;
    for (const QVariant& each : menu.menus())
        list.append(each.toMap().value(QStringLiteral("title")).toString());
    return list;
}

/// The titles of a menu's lines for which `key` is true.
QStringList linesWith(const MainMenu& menu, const char* id, const char* key) {
    QStringList list;
    for (const QVariant& each : menu.menus()) {
        const QVariantMap map = each.toMap();
        if (map[QStringLiteral("id")] != QLatin1String(id))
            continue;
        for (const QVariant& line : map[QStringLiteral("items")].toList()) {
            if (line.toMap().value(QLatin1String(key)).toBool())
                list.append(line.toMap().value(QStringLiteral("title")).toString());
        }
    }
    return list;
}

/// A main menu with two plain menus, a World menu that comes and goes, and two windows.
struct Shell {
    std::unique_ptr<EditorWorlds> worlds;
    int worldsMade = 0;
    std::vector<WindowKind> benches;
    WorldMenuActions actions{[this]() -> EditorWorlds& {
                                 if (!worlds) {
                                     ++worldsMade;
                                     worlds = std::make_unique<EditorWorlds>(
                                         EditorWorlds::World::realData);
                                 }
                                 return *worlds;
                             },
                             [this](WindowKind kind) { benches.push_back(kind); }};
    MainMenu menu;
    QWindow settings;
    QWindow bench;

    Shell() {
        std::size_t index = 0;
        for (const char* title : {"Wendlow", "Edit", "Window"}) {
            menu.insert(index++, {.id = QString::fromLatin1(title),
                                  .title = QString::fromLatin1(title),
                                  .lines = {}});
        }
        WindowDescriptions::dress(settings, WindowDescriptions::of(WindowKind::settings));
        WindowDescriptions::dress(bench, WindowDescriptions::of(WindowKind::rowsBench));
    }
    QString titlesWith(const QWindow* mainWindow) {
        syncWorldMenu(menu, actions, mainWindow);
        return titles(menu).join(u' ');
    }
};

TEST(WorldMenu, IsThereExactlyWhileAnEditorSideWindowIsTheMainOne) {
    Shell shell;
    const QSignalSpy changes(&shell.menu, &MainMenu::menusChanged);
    EXPECT_EQ(shell.titlesWith(&shell.settings), QStringLiteral("Wendlow Edit Window"));
    EXPECT_EQ(changes.count(), 0);
    for (int notification = 0; notification < 3; ++notification)
        EXPECT_EQ(shell.titlesWith(&shell.bench), QStringLiteral("Wendlow Edit World Window"));
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(shell.titlesWith(nullptr), QStringLiteral("Wendlow Edit Window"));
    EXPECT_EQ(shell.titlesWith(&shell.bench), QStringLiteral("Wendlow Edit World Window"));
    EXPECT_EQ(shell.titlesWith(&shell.settings), QStringLiteral("Wendlow Edit Window"));
    EXPECT_EQ(changes.count(), 4);
}

TEST(WorldMenu, SwitchesWorldsTicksTheCurrentOneAndOpensBenches) {
    Shell shell;
    shell.titlesWith(&shell.bench);
    const auto press = [&shell](const char* line) {
        shell.menu.trigger(QStringLiteral("world"), QString::fromLatin1(line));
        return linesWith(shell.menu, "world", "checked").join(u'|');
    };
    EXPECT_EQ(linesWith(shell.menu, "world", "checked").join(u'|'), QStringLiteral("My real data"));
    EXPECT_EQ(press("dayZero"), QStringLiteral("Day zero"));
    EXPECT_EQ(press("someData"), QStringLiteral("Some data"));
    EXPECT_EQ(press("powerUser"), QStringLiteral("Power user"));
    const QSignalSpy resets(shell.worlds.get(), &EditorWorlds::worldReset);
    EXPECT_EQ(press("resetWorld"), QStringLiteral("Power user"));
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(press("realData"), QStringLiteral("My real data"));
    EXPECT_EQ(shell.worldsMade, 1);
    for (const char* line : {"openWorkbench", "openControlsBench", "openFiltersBench",
                             "openSearchBench", "openRowsBench", "openNothing"})
        press(line);
    EXPECT_THAT(shell.benches, ElementsAre(WindowKind::workbench, WindowKind::controlsBench,
                                           WindowKind::filtersBench, WindowKind::searchBench,
                                           WindowKind::rowsBench));
}

TEST(MainMenu, ItsKeysWorkInEveryWindowWhileTheMenuIsThere) {
    Shell shell;
    shell.titlesWith(&shell.bench);
    shell.settings.show();
    shell.settings.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&shell.settings));
    QTest::keyClick(&shell.settings, Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(shell.worlds->world(), EditorWorlds::World::someData);
    shell.titlesWith(&shell.settings);
    QTest::keyClick(&shell.settings, Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(shell.worlds->world(), EditorWorlds::World::someData);
}

/// A text field and a menu line of Qt Quick, either of which may have the focus.
constexpr const char* textAndMenu = R"(
    import QtQuick
    Window {
        visible: true
        width: 200; height: 100
        TextInput { objectName: "text"; focus: true; text: "one two" }
        TextEdit { objectName: "fixed"; text: "fixed"; readOnly: true }
        Item { objectName: "menu"; Accessible.role: Accessible.MenuItem }
        Item { objectName: "other" }
    })";

TEST(EditActions, ActOnTheTextThatAPersonIsInAlsoWhileAMenuHasTheFocus) {
    EditActions actions;
    MainMenu menu;
    menu.insert(0, {.id = QStringLiteral("edit"), .title = {}, .lines = actions.lines()});
    const auto can = [&menu] { return linesWith(menu, "edit", "enabled").join(u'|'); };
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData(textAndMenu, {});
    const std::unique_ptr<QObject> made(component.create());
    auto* const window = qobject_cast<QQuickWindow*>(made.get());
    ASSERT_NE(window, nullptr) << component.errorString().toStdString();
    window->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    const auto focus = [window](const char* name) {
        auto* const item = window->findChild<QQuickItem*>(QLatin1String(name));
        item->forceActiveFocus();
        return item;
    };
    const auto trigger = [&menu](const char* line) {
        menu.trigger(QStringLiteral("edit"), QLatin1String(line));
    };
    QGuiApplication::clipboard()->clear();
    QQuickItem* const text = focus("text");
    // The empty titles are the separators, which are never disabled.
    EXPECT_EQ(can(), QStringLiteral("|Select All"));
    focus("menu");
    trigger("selectAll");
    EXPECT_EQ(can(), QStringLiteral("|Cut|Copy|Select All"));
    trigger("cut");
    EXPECT_EQ(text->property("text").toString(), QString());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("one two"));
    trigger("undo");
    EXPECT_EQ(text->property("text").toString(), QStringLiteral("one two"));
    focus("fixed");
    trigger("selectAll");
    EXPECT_EQ(can(), QStringLiteral("|Copy|Select All"));
    focus("other");
    EXPECT_EQ(can(), QString());
    trigger("selectAll");
}

/// The door, with what it made happen.
struct Door {
    QStringList happened;
    DistributedNotificationCenter center{QDBusConnection(QStringLiteral("none"))};
    SettingsDelegate delegate{
        center,
        {.show =
             [this](WindowDoor::Pane pane, WindowDoor::Front front) {
                 happened.append(
                     QStringLiteral("show %1 %2")
                         .arg(QString::fromStdString(std::string(WindowDoor::text(pane))))
                         .arg(front == WindowDoor::Front::bring));
             },
         .log = [this](const std::string& line) { happened.append(QString::fromStdString(line)); },
         .mainWindowChanged = [this] { happened.append(QStringLiteral("sync")); }}};
};

TEST(SettingsDelegate, OpensThePaneThatTheDoorNamesAndIgnoresOtherRequests) {
    using Note = DistributedNotification;
    const std::string name(WindowDoor::notification);
    Door door;
    for (const Note& note : {Note{.name = name}, Note{.name = name, .object = "stats "},
                             Note{.name = name, .object = ""}})
        door.delegate.doorOpened(note);
    EXPECT_TRUE(door.happened.isEmpty());
    door.delegate.doorOpened({.name = name, .object = "stats", .userInfo = {{{"front", "yes"}}}});
    door.delegate.doorOpened({.name = name,
                              .object = "onboarding",
                              .userInfo = WindowDoor::userInfo(WindowDoor::Front::bring)});
    EXPECT_EQ(door.happened.join(u'|'),
              QStringLiteral("door: menu asked for stats|show stats 0|"
                             "door: menu asked for onboarding (front)|show onboarding 1"));
}

TEST(SettingsDelegate, FollowsTheMainWindowUntilTheApplicationEnds) {
    Door door;
    QWindow window;
    window.show();
    window.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_TRUE(door.happened.contains(QStringLiteral("sync")));
    door.delegate.applicationWillTerminate();
    door.happened.clear();
    window.close();
    QTest::qWait(10);
    EXPECT_TRUE(door.happened.isEmpty());
}

} // namespace
} // namespace wendlow
