// The panes of Settings that ask the daemon, worked in the real window over the practice gateway.

#include "Files.h"
#include "Support/KeyWalk.h"
#include "Support/OnADesktop.h"

#include <QJsonArray>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

class Settings : public OnADesktop {
protected:
    void open(const QString& pane) {
        application.emplace(desktop, QStringList{u"--window=settings"_s, u"--pane="_s + pane});
        const auto window = application->window(u"Wendlow"_s);
        ASSERT_TRUE(window) << application->errors().toStdString();
        ASSERT_TRUE(eventually([&] { return window->isActive(); }));
        EXPECT_THAT(nameless(u"Wendlow"_s), ::testing::IsEmpty());
    }
    bool gone(const QString& name) const {
        return eventually([&] { return !application->findNow(name); });
    }
    bool hasFocus(const QString& name) const {
        return eventually([&] {
            const auto thing = application->findNow(name);
            return thing && thing->isFocused();
        });
    }
    QJsonObject read(const char* question) const {
        return gateway.ask(fmt::format(R"({{"read":{{"_0":{{"{}":{{}}}}}}}})", question));
    }
    /// What is wrong with the focus on a walk over so many stops; empty: nothing.
    std::string walked(int stops) const {
        const KeyWalk walk(desktop, *application, u"Wendlow"_s);
        return walk.press(QStringList(stops, u"Tab"_s)).join(u'\n').toStdString();
    }
};

TEST_F(Settings, ASwitchGoesOffWithItsQuestionAndThePurgeToItsEnd) {
    gateway.start();
    open(u"general"_s);
    const auto toggle = application->find(u"check box"_s, u"All day screenshots"_s);
    ASSERT_TRUE(toggle && toggle->isChecked());
    EXPECT_EQ(walked(4), "");
    const auto frames = [&] { return read("frameStats")[u"_0"_s].toObject(); };
    ASSERT_TRUE(eventually([&] { return frames()[u"bytes"_s].isDouble(); }));
    const QString question = u"Turn off screenshots?"_s;
    const QString body =
        u"This deletes all %1 screenshots (about %2 MB) from your recorded moments. "
        "Screen OCR will remain. Meeting recordings are kept."_s
            .arg(frames()[u"screenshots"_s].toInt())
            .arg(frames()[u"bytes"_s].toInteger() >> 20);

    desktop.click(toggle->extents().center());
    ASSERT_TRUE(says(question));
    EXPECT_TRUE(hasFocus(u"Cancel"_s)) << "the safe answer";
    desktop.press({u"Escape"_s});
    EXPECT_TRUE(gone(question));
    EXPECT_TRUE(eventually([&] { return toggle->isFocused(); }));
    EXPECT_TRUE(toggle->isChecked()) << "nothing was done";
    desktop.press({u"space"_s});
    ASSERT_TRUE(says(body));
    ASSERT_TRUE(hasFocus(u"Cancel"_s));
    desktop.press({u"Tab"_s, u"Return"_s});
    ASSERT_TRUE(eventually([&] { return !toggle->isChecked(); }));
    EXPECT_TRUE(eventually([&] {
        return application->window(u"Wendlow"_s)
            ->find([](const Accessible& thing) {
                return thing.name().startsWith(u"Deleting… "_s) && thing.isShowing();
            })
            .has_value();
    }));
    EXPECT_TRUE(says(u"1 day could not be cleared"_s));
    EXPECT_FALSE(frames()[u"purge"_s][u"skipped"_s].toArray().isEmpty());
    EXPECT_TRUE(toggle->isFocused());
    desktop.press({u"space"_s});
    EXPECT_TRUE(eventually([&] { return toggle->isChecked(); })) << "on needs no question";
}

TEST_F(Settings, TheDiagnosticLogComesAndGoes) {
    gateway.start();
    open(u"general"_s);
    ASSERT_TRUE(is("check box", u"All day screenshots"_s));
    const QString name = u"Keep a diagnostic log"_s;
    EXPECT_FALSE(application->findNow(name));
    const auto log = desktop.home() / "Library/Logs/wendlow-trace.log";
    desktop.press({u"alt+l"_s});
    const auto toggle = application->find(u"check box"_s, name);
    ASSERT_TRUE(toggle);
    EXPECT_TRUE(eventually([&] { return std::filesystem::exists(log); }));
    // A press while the daemon is at work would be for nothing.
    EXPECT_TRUE(eventually([&] { return toggle->isChecked(); }));
    desktop.press({u"alt+l"_s});
    EXPECT_TRUE(eventually([&] { return !std::filesystem::exists(log); }));
    EXPECT_TRUE(gone(name));
}

TEST_F(Settings, ARefusalStandsBesideItsControl) {
    gateway.startWith({"--refuse", "set_reel_keep=the disk is full", "--unimplemented",
                       "set_frame_keep", "--garble", "self_names"});
    open(u"general"_s);
    for (const auto& [toggle, question, sentence] :
         {std::tuple(u"Meeting screenshots"_s, u"Turn off meeting screenshots?"_s,
                     u"the disk is full"_s),
          std::tuple(u"All day screenshots"_s, u"Turn off screenshots?"_s,
                     u"This Wendlow daemon does not accept set_frame_keep yet — quitting and "
                     "reopening Wendlow picks up the new one."_s)}) {
        const auto control = application->find(u"check box"_s, toggle);
        ASSERT_TRUE(control);
        desktop.click(control->extents().center());
        ASSERT_TRUE(says(question));
        press(u"Delete screenshots"_s);
        EXPECT_TRUE(says(sentence));
        EXPECT_TRUE(gone(question) && control->isChecked()) << "no switch lies";
    }
    const auto field = application->find(u"text"_s, u"Your name in meeting apps"_s);
    ASSERT_TRUE(field);
    desktop.click(field->extents().center());
    write(u"ann"_s);
    desktop.press({u"Return"_s});
    EXPECT_TRUE(says(u"Wendlow answered that with something this app does not understand."_s));
    EXPECT_THAT(nameless(u"Wendlow"_s), ::testing::IsEmpty());
}

TEST_F(Settings, ARuleOfEachKindIsAddedAndRemoved) {
    put(desktop.home() / ".local/share/applications/xylo.desktop",
        "[Desktop Entry]\nType=Application\nName=xylo\n");
    gateway.start();
    open(u"recording"_s);
    ASSERT_TRUE(says(u"Choose what gets remembered"_s));
    const auto has = [&](const QString& value, const char* kind, const char* tier) {
        const QJsonArray rules = read("getRules")[u"_0"_s].toArray();
        return std::ranges::any_of(rules, [&](const QJsonValue& rule) {
            return rule[u"value"_s].toString() == value &&
                   rule[u"kind"_s].toString() == QLatin1String(kind) &&
                   rule[u"tier"_s].toString() == QLatin1String(tier);
        });
    };
    const std::tuple<QString, QString, const char*, const char*> rows[] = {
        {u"Add app"_s, u"xylo"_s, "app", "usageOnly"},
        {u"Add site"_s, u"intranet"_s, "site", "usageOnly"},
        {u"Add word or phrase…"_s, u"pay rise"_s, "phrase", "never"},
        {u"Add topic"_s, u"plans"_s, "topic", "never"}};
    for (const auto& [words, value, kind, tier] : rows) {
        SCOPED_TRACE(kind);
        // A sheet gives the focus back to what had it.
        const bool isPicked = std::string_view(kind) == "app";
        if (isPicked)
            desktop.click(application->findNamed(words).value().extents().center());
        else
            press(words);
        ASSERT_TRUE(is("push button", u"Cancel"_s));
        ASSERT_TRUE(!isPicked || is("list item", value)) << "it is installed";
        write(value);
        desktop.press({u"Return"_s});
        EXPECT_TRUE(eventually([&] { return has(value, kind, tier); }));
        ASSERT_TRUE(gone(u"Cancel"_s));
        ASSERT_TRUE(is("list item", value));
        // From what added it to the last of its group.
        ASSERT_TRUE(hasFocus(words));
        desktop.press({u"Tab"_s, u"End"_s});
        ASSERT_TRUE(hasFocus(value));
        EXPECT_TRUE(application->findNow(u"Remove "_s + value)) << "for the pointer";
        desktop.press({u"Delete"_s});
        EXPECT_TRUE(gone(value));
        EXPECT_TRUE(eventually([&] { return !has(value, kind, tier); }));
    }
    EXPECT_EQ(walked(5), "");
}

TEST_F(Settings, ThePhraseIsRevealedHiddenAndGivenBack) {
    gateway.startWith({"--recovery", "armed"});
    open(u"recovery"_s);
    ASSERT_TRUE(says(u"Your memory is encrypted"_s));
    EXPECT_EQ(walked(4), "");
    const auto words = gateway.ask(R"({"control":{"_0":{"revealPhrase":{}}}})")[u"_0"_s].toArray();
    ASSERT_EQ(words.size(), 12);
    const QString first = u"1: "_s + words[0].toString();
    EXPECT_FALSE(application->findNow(first));
    press(u"Reveal Recovery Phrase"_s);
    ASSERT_TRUE(says(first));
    EXPECT_TRUE(says(u"12: "_s + words[11].toString()));
    EXPECT_THAT(nameless(u"Wendlow"_s), ::testing::IsEmpty());
    press(u"Copy"_s);
    EXPECT_TRUE(says(u"Copied"_s));
    press(u"Hide Recovery Phrase"_s);
    EXPECT_TRUE(gone(first));

    gateway.startWith({"--recovery", "locked"});
    ASSERT_TRUE(
        says(u"this Mac holds no key for the store on disk — that is what the phrase is for"_s));
    const auto field = application->find(u"text"_s, u"Restore from a recovery phrase"_s);
    ASSERT_TRUE(field);
    desktop.click(field->extents().center());
    write(u"only"_s);
    desktop.press({u"Return"_s});
    ASSERT_TRUE(says(u"a recovery phrase is 12 words — this one has 1"_s));
    desktop.press({u"ctrl+a"_s, u"ctrl+v"_s, u"Tab"_s, u"Return"_s});
    EXPECT_TRUE(says(u"Phrase accepted: it opened 1 of the 1 store file(s) Wendlow checked, and "
                     "the key was installed. Nothing was deleted, moved or re-keyed. Wendlow is "
                     "restarting."_s));
    EXPECT_TRUE(
        eventually([&] { return read("recoveryState")[u"_0"_s].toString() == u"armed"_s; }));
    EXPECT_TRUE(
        gone(u"this Mac holds no key for the store on disk — that is what the phrase is for"_s));
    press(u"General"_s);
    EXPECT_TRUE(is("check box", u"All day screenshots"_s)) << "the window works again";
}

} // namespace
} // namespace wendlow::testing
