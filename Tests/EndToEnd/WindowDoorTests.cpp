#include "Files.h"
#include "Support/Desktop.h"

#include <gtest/gtest.h>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

class Door : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(desktop.isReady()); }

    /// Asks for a window as the menu-bar process does.
    void post(const QStringList& arguments) const {
        desktop.run(QStringLiteral(WENDLOW_POST_NOTIFICATION),
                    QStringList{u"works.fenmoor.wendlow.open-window"_s} + arguments);
    }
    std::string journal() const {
        return get(desktop.home() / "Library/Logs/wendlow-journey.log").value_or("");
    }
    bool isAsked(const std::string& pane) const {
        return journal().contains("door: menu asked for " + pane + "\n");
    }

    Desktop desktop;
};

TEST_F(Door, ASecondProcessBringsUpEachPane) {
    RunningApplication application(desktop, {u"--window=bogus"_s, u"--window=stats"_s});
    ASSERT_TRUE(application.window(u"Stats"_s)) << application.errors().toStdString();
    EXPECT_EQ(application.windowTitles(), QStringList{u"Stats"_s});

    for (const auto& [pane, title] :
         {std::pair(u"settings"_s, u"Wendlow"_s), std::pair(u"editor"_s, u"Memories"_s),
          std::pair(u"onboarding"_s, u"Welcome to Wendlow"_s), std::pair(u"stats"_s, u"Stats"_s)}) {
        post({u"--object"_s, pane});
        EXPECT_TRUE(application.window(title)) << pane.toStdString();
        EXPECT_TRUE(eventually([&] { return isAsked(pane.toStdString()); }));
    }
    post({u"--object"_s, u"stats "_s});
    post({u"--object"_s, u"onboarding"_s, u"--info"_s, u"front=1"_s});
    EXPECT_TRUE(eventually([&] { return isAsked("onboarding (front)"); }));
    EXPECT_FALSE(journal().contains("stats "));
    EXPECT_EQ(application.windowTitles().size(), 4);
}

TEST_F(Door, TheWorldMenuStaysWhileAnotherProgramIsInFront) {
    RunningApplication application(desktop, {u"--window=editor"_s});
    const auto editor = application.window(u"Memories"_s);
    ASSERT_TRUE(editor) << application.errors().toStdString();
    const auto hasWorld = [&editor] {
        return editor->find([](const Accessible& thing) { return thing.name() == u"World"_s; })
            .has_value();
    };
    EXPECT_TRUE(eventually(hasWorld));

    // Another program takes the focus, and stays out of the tree in which ours is looked for.
    QProcess other;
    auto environment = desktop.environment();
    environment.remove(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s);
    // On another bus it is another person's: on this one it would hand over and end.
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"disabled:"_s);
    other.setProcessEnvironment(environment);
    ASSERT_TRUE(eventually([&editor] { return editor->isActive(); }));
    other.start(QStringLiteral(WENDLOW_BUNDLE "/Contents/MacOS/wendlow-settings"),
                {u"--window=stats"_s});
    EXPECT_TRUE(eventually([&editor] { return !editor->isActive(); }));
    EXPECT_TRUE(hasWorld());
    other.terminate();
    EXPECT_TRUE(other.waitForFinished());
}

TEST_F(Door, WorksWithABusThatIsSlowAndWithTheOneThatFollowsIt) {
    desktop.bus().wedge();
    RunningApplication application(desktop, {u"--window=stats"_s});
    EXPECT_TRUE(eventually([&] { return desktop.hasWindow(u"Stats"_s); }))
        << "no window comes while the bus stands still";
    desktop.bus().goOn();
    const auto asked = [&](const QString& pane) {
        return eventually([&] {
            post({u"--object"_s, pane});
            return isAsked(pane.toStdString());
        });
    };
    EXPECT_TRUE(asked(u"settings"_s));
    EXPECT_TRUE(eventually([&] { return desktop.hasWindow(u"Wendlow"_s); }));
    desktop.bus().restart();
    EXPECT_TRUE(asked(u"editor"_s)) << "nobody listens to the new bus";
    EXPECT_TRUE(eventually([&] { return desktop.hasWindow(u"Memories"_s); }));
}

TEST_F(Door, ClosesAtOnceWhileTheBusStandsStill) {
    desktop.bus().wedge();
    RunningApplication application(desktop, {u"--window=stats"_s});
    ASSERT_TRUE(eventually([&] { return desktop.hasWindow(u"Stats"_s); }));
    desktop.press({u"ctrl+w"_s});
    EXPECT_TRUE(application.waitForEnd());
}

TEST_F(Door, ClosingTheLastWindowQuits) {
    RunningApplication application(desktop, {u"--window=stats"_s});
    ASSERT_TRUE(application.window(u"Stats"_s)) << application.errors().toStdString();
    EXPECT_TRUE(eventually([&] {
        return journal().contains("repair: Claude Chat retirement: unchanged\n");
    })) << "nothing is repaired at the start";
    desktop.press({u"ctrl+w"_s});
    EXPECT_TRUE(application.waitForEnd());
}

} // namespace
} // namespace wendlow::testing
