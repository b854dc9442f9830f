#include "Support/ClaudeCodeHome.h"
#include "Support/KeyWalk.h"
#include "Support/OnADesktop.h"

#include <QProcess>

#include <gmock/gmock.h>

#include <algorithm>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

/// The real application on a Mac that knows Wendlow for the first time, worked by hand.
class JourneyWindow : public OnADesktop {
protected:
    const QString title = u"Welcome to Wendlow"_s;

    void SetUp() override {
        OnADesktop::SetUp();
        ClaudeCodeHome::fill(desktop.home().path());
        gateway.fill.clear();
        gateway.start();
        gateway.ask(R"({"control":{"_0":{"generatePhrase":{}}}})");
    }
    /// Starts the application as the desktop does: without a word of what is to be shown.
    void start() { application.emplace(desktop, QStringList{}); }
    /// Plays the menu-bar application beside it.
    void startMenu(const QStringList& options) {
        menu.setProcessEnvironment(desktop.environment());
        menu.start(QStringLiteral(WENDLOW_PRACTICE_MENU), options);
        ASSERT_TRUE(menu.waitForStarted());
    }
    void TearDown() override {
        OnADesktop::TearDown();
        menu.terminate();
        menu.waitForFinished();
    }
    /// All that lies in the home, with its bytes and modes, but for logs, what the daemon holds,
    /// the choice about updates, and the copies that the connectors keep of what they change.
    std::vector<std::string> everything() const {
        constexpr const char* others[] = {"/runtime", "/Library/Logs", "/Library/Preferences",
                                          "/data.db", ".wendlow-backup-"};
        std::vector<std::string> all;
        for (const auto& each :
             std::filesystem::recursive_directory_iterator(desktop.home().path())) {
            const std::string path = each.path().string();
            if (std::ranges::none_of(others, [&](auto other) { return path.contains(other); }))
                all.push_back(path + ' ' + std::to_string(modeOf(path)) + ' ' +
                              get(path).value_or("/"));
        }
        std::ranges::sort(all);
        return all;
    }
    std::string servers() const { return get(desktop.home() / ".claude.json").value_or(""); }

    QProcess menu;

    /// The keys come to this, or what begins with it.
    ::testing::AssertionResult comesTo(const QString& thing) const {
        const KeyWalk walk(desktop, *application, title);
        QStringList last;
        if (eventually([&] {
                last = walk.focused();
                return last.size() == 1 && last[0].startsWith(thing);
            }))
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "at “" << last.join(u", "_s).toStdString() << "”";
    }
    void expect(const QString& thing, const QStringList& keys) const {
        EXPECT_TRUE(comesTo(thing)) << "in place of " << thing.toStdString();
        desktop.press(keys);
    }
    /// From the first screen to the one of the local models, with Claude Code plugged in.
    void goToLocalModels() {
        start();
        const auto window = application->window(title);
        ASSERT_TRUE(window) << application->errors().toStdString();
        ASSERT_TRUE(eventually([&] { return window->isActive(); }));
        const auto terms = application->find(u"check box"_s, u"I agree to the terms."_s);
        ASSERT_TRUE(terms);
        desktop.click(terms->extents().topLeft() + QPoint(8, terms->extents().height() / 2));
        ASSERT_TRUE(eventually([&] { return terms->isChecked(); }));
        desktop.press({u"Tab"_s, u"Tab"_s, u"Tab"_s});
        expect(u"push button Setup Wendlow"_s, {u"Return"_s});
        for (const auto& asked :
             {u"Ask for Screen Recording"_s, u"Ask for Accessibility"_s, u"Allow microphone"_s}) {
            expect(u"push button "_s + asked, {u"Return"_s});
            expect(u"push button Next"_s, {u"Return"_s});
        }
        expect(u"check box I have written these twelve words down."_s, {u"space"_s});
        EXPECT_TRUE(is("list", u"Setup, step 3 of 6"_s));
        desktop.press({u"Tab"_s, u"Tab"_s});
        expect(u"push button Next"_s, {u"Return"_s});
        expect(u"check box Claude Code"_s, {u"space"_s});
        EXPECT_TRUE(eventually([&] { return servers().contains("wendlow-mcp"); }));
        press(u"Next"_s);
        EXPECT_TRUE(comesTo(u"push button Continue"_s));
        EXPECT_THAT(nameless(title), ::testing::IsEmpty());
    }
};

TEST_F(JourneyWindow, OpensByItselfAndIsWalkedToItsEndOnce) {
    goToLocalModels();
    desktop.press({u"Return"_s});
    EXPECT_TRUE(comesTo(u"label One moment, getting the assistant ready…"_s));
    startMenu({});
    EXPECT_TRUE(comesTo(u"label listening for your AI"_s));
    gateway.ask(R"({"notes":{"_0":{"write":{"text":"Hello.","why":"the first words",)"
                R"("writer":"claude-code","type":"onboarding","path":"/"}}}})");
    expect(u"push button Close setup"_s, {u"Return"_s});
    EXPECT_TRUE(says(u"Wendlow is installed."_s));
    expect(u"push button Quit setup"_s, {u"Return"_s});
    EXPECT_TRUE(application->waitForEnd());

    start();
    EXPECT_TRUE(application->window(u"Wendlow"_s)) << application->errors().toStdString();
    EXPECT_EQ(application->windowTitles(), QStringList{u"Wendlow"_s}) << "it opened once more";
}

TEST_F(JourneyWindow, GivesEverythingBackWhenItIsCancelled) {
    std::filesystem::create_directories(desktop.home() / "Library/Logs");
    const auto before = everything();
    startMenu({u"--no-warm-up"_s});
    goToLocalModels();
    press(u"Cancel install"_s);
    EXPECT_TRUE(is("dialog", u"Cancel the install?"_s));
    expect(u"push button Keep going"_s, {u"Tab"_s});
    expect(u"push button Cancel install"_s, {u"Return"_s});
    EXPECT_TRUE(application->waitForEnd());
    EXPECT_TRUE(menu.waitForFinished()) << "the download goes on";
    EXPECT_EQ(everything(), before);
}

} // namespace
} // namespace wendlow::testing
