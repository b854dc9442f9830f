#include "EditActions.h"
#include "SettingsDelegate.h"
#include "UnimplementedGateway.h"
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

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;

/// The titles of a menu's lines for which `key` is true.
QStringList linesWith(const MainMenu& menu, const char* id, const char* key) {
    QStringList list;
    for (const QVariant& each : menu.menus()) {
        const QVariantMap map = each.toMap();
        if (map[u"id"_s] != QLatin1String(id))
            continue;
        for (const QVariant& line : map[u"items"_s].toList()) {
            if (line.toMap().value(QLatin1String(key)).toBool())
                list.append(line.toMap().value(u"title"_s).toString());
        }
    }
    return list;
}

/// A main menu with two plain menus, a World menu that comes and goes, and two windows.
struct Shell {
    std::unique_ptr<EditorWorlds> worlds;
    std::vector<WindowKind> benches;
    WorldMenuActions actions{
        [this]() -> EditorWorlds& {
            if (!worlds)
                worlds = std::make_unique<EditorWorlds>(
                    std::make_shared<InProcessClient>(std::make_shared<UnimplementedGateway>()),
                    EditorWorld::realData);
            return *worlds;
        },
        [this](WindowKind kind) { benches.push_back(kind); }};
    MainMenu menu;
    QWindow settings;
    QWindow bench;

    Shell() {
        for (const QString& title : {u"Window"_s, u"Edit"_s, u"Wendlow"_s})
            menu.insert(0, {.id = title, .title = title, .lines = {}});
        WindowDescriptions::dress(settings, WindowDescriptions::of(WindowKind::settings));
        WindowDescriptions::dress(bench, WindowDescriptions::of(WindowKind::rowsBench));
    }
    /// Each with a mark before its letter.
    QString titlesWith(const QWindow* mainWindow) {
        syncWorldMenu(menu, actions, mainWindow);
        QStringList titles;
        for (const QVariant& each : menu.menus()) {
            const QVariantMap titled = each.toMap();
            titles.append(
                titled[u"title"_s].toString().insert(titled[u"mnemonic"_s].toInt(), u'&'));
        }
        return titles.join(u' ');
    }
};

TEST(WorldMenu, SwitchesWorldsTicksTheCurrentOneAndOpensBenches) {
    Shell shell;
    const QSignalSpy changes(&shell.menu, &MainMenu::menusChanged);
    for (int notification = 0; notification < 3; ++notification)
        EXPECT_EQ(shell.titlesWith(&shell.bench), u"&Wendlow &Edit W&orld W&indow"_s)
            << "each has a letter of its own";
    EXPECT_EQ(changes.count(), 1);
    const auto press = [&shell](const char* line) {
        shell.menu.trigger(u"world"_s, QString::fromLatin1(line));
        return linesWith(shell.menu, "world", "checked").join(u'|');
    };
    EXPECT_EQ(press("dayZero"), u"Day zero"_s);
    EXPECT_EQ(press("powerUser"), u"Power user"_s);
    const auto before = shell.worlds->seeded().generation();
    EXPECT_EQ(press("resetWorld"), u"Power user"_s);
    EXPECT_EQ(shell.worlds->seeded().generation(), before + 1);
    EXPECT_EQ(press("realData"), u"My real data"_s);
    for (const char* line : {"openWorkbench", "openRowsBench", "openNothing"})
        press(line);
    EXPECT_THAT(shell.benches, ElementsAre(WindowKind::workbench, WindowKind::rowsBench));
}

TEST(MainMenu, ItsKeysWorkInEveryWindowWhileTheMenuIsThere) {
    Shell shell;
    shell.titlesWith(&shell.bench);
    shell.settings.show();
    shell.settings.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&shell.settings));
    QTest::keyClick(&shell.settings, Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(shell.worlds->world(), EditorWorld::someData);
    shell.titlesWith(&shell.settings);
    QTest::keyClick(&shell.settings, Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(shell.worlds->world(), EditorWorld::someData);
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
    menu.insert(0, {.id = u"edit"_s, .title = {}, .lines = actions.lines()});
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
        menu.trigger(u"edit"_s, QLatin1String(line));
    };
    QGuiApplication::clipboard()->clear();
    QQuickItem* const text = focus("text");
    // The empty titles are the separators, which are never disabled.
    EXPECT_EQ(can(), u"|Select All"_s);
    focus("menu");
    trigger("selectAll");
    EXPECT_EQ(can(), u"|Cut|Copy|Select All"_s);
    trigger("cut");
    EXPECT_EQ(text->property("text").toString(), QString());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"one two"_s);
    trigger("undo");
    EXPECT_EQ(text->property("text").toString(), u"one two"_s);
    focus("fixed");
    trigger("selectAll");
    EXPECT_EQ(can(), u"|Copy|Select All"_s);
    Q_EMIT qGuiApp->focusObjectChanged(nullptr);
    EXPECT_EQ(can(), u"|Copy|Select All"_s) << "only another program has the focus";
    window->hide();
    EXPECT_EQ(can(), QString()) << "nobody sees what that would do";
    window->show();
    focus("other");
    EXPECT_EQ(can(), QString());
    trigger("selectAll");
}

/// The door, with what it made happen.
struct Door {
    QStringList happened;
    DistributedNotificationCenter center;
    FrontWindow frontWindow;
    SettingsDelegate delegate{
        center,
        frontWindow,
        {.show =
             [this](WindowDoor::Pane pane, WindowDoor::Front front) {
                 happened.append(
                     u"show %1 %2"_s
                         .arg(QString::fromStdString(std::string(WindowDoor::text(pane))))
                         .arg(front == WindowDoor::Front::bring));
             },
         .turnTo =
             [this](std::string_view pane) {
                 happened.append(u"turn to "_s + QString::fromUtf8(pane));
             },
         .log = [this](const std::string& line) { happened.append(QString::fromStdString(line)); },
         .mainWindowChanged = [] {}}};
};

TEST(SettingsDelegate, OpensThePaneThatTheDoorNamesAndIgnoresOtherRequests) {
    const std::string name(WindowDoor::notification);
    Door door;
    door.delegate.doorOpened({.name = name});
    door.delegate.doorOpened({.name = name, .object = "stats "});
    EXPECT_TRUE(door.happened.isEmpty());
    door.delegate.doorOpened({.name = name, .object = "stats", .userInfo = {{{"front", "yes"}}}});
    door.delegate.doorOpened({.name = name,
                              .object = "onboarding",
                              .userInfo = WindowDoor::userInfo(WindowDoor::Front::bring)});
    door.delegate.doorOpened({.name = name, .object = "settings", .userInfo = {{{"pane", "x"}}}});
    EXPECT_EQ(door.happened.join(u'|'),
              QStringLiteral("door: menu asked for stats|show stats 0|"
                             "door: menu asked for onboarding (front)|show onboarding 1|"
                             "door: menu asked for settings|turn to x|show settings 0"));
}

} // namespace
} // namespace wendlow
