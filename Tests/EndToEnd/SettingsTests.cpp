// The panes of Settings that ask the daemon, worked in the real window over the practice gateway.

#include "Files.h"
#include "Support/KeyWalk.h"
#include "Support/OnADesktop.h"

#include <QJsonArray>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

class Settings : public OnADesktop {
protected:
    void open(const QString& pane) {
        application.emplace(desktop, QStringList{u"--window=settings"_s, u"--pane="_s + pane});
        ASSERT_TRUE(application->window(u"Wendlow"_s)) << application->errors().toStdString();
    }
    bool gone(const QString& name) const {
        return eventually([&] { return !application->findNow(name); });
    }
    /// Types letters, digits, blanks and full stops.
    void type(QString text) const {
        QStringList keys;
        for (const QChar letter : text)
            keys.append(letter == u' '   ? u"space"_s
                        : letter == u'.' ? u"period"_s
                                         : QString(letter));
        desktop.press(keys);
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
    EXPECT_EQ(walked(10), "");
    const auto stats = read("frameStats")[u"_0"_s].toObject();
    const QString count = QString::number(stats[u"screenshots"_s].toInt());
    const QString rest = u" from your recorded moments. Screen OCR will remain. Meeting recordings "
                         "are kept."_s;

    desktop.click(toggle->extents().center());
    ASSERT_TRUE(says(u"Turn off screenshots?"_s));
    desktop.press({u"Escape"_s});
    EXPECT_TRUE(gone(u"Turn off screenshots?"_s));
    EXPECT_TRUE(toggle->isChecked() && toggle->isFocused()) << "nothing was done";
    desktop.press({u"space"_s});
    ASSERT_TRUE(says(u"Turn off screenshots?"_s));
    const auto bytes = [&] { return read("frameStats")[u"_0"_s].toObject()[u"bytes"_s]; };
    ASSERT_TRUE(eventually([&] { return bytes().isDouble(); }));
    const auto megabytes = static_cast<qint64>(std::llround(bytes().toDouble() / (1 << 20)));
    EXPECT_TRUE(
        says(u"This deletes all %1 screenshots (about %2 MB)"_s.arg(count).arg(megabytes) + rest));
    desktop.press({u"Tab"_s, u"Return"_s}); // from the safe answer to the other
    ASSERT_TRUE(eventually([&] { return !toggle->isChecked() && toggle->isEnabled(); }));
    EXPECT_TRUE(toggle->isFocused());

    bool cleared = false;
    for (int tries = 0; tries < 4 && !cleared; ++tries)
        cleared = says(u"1 day could not be cleared"_s);
    EXPECT_TRUE(cleared);
    const auto left = read("frameStats")[u"_0"_s].toObject();
    EXPECT_LT(left[u"screenshots"_s].toInt(), stats[u"screenshots"_s].toInt());
    desktop.press({u"space"_s});
    EXPECT_TRUE(eventually([&] { return toggle->isChecked(); })) << "on needs no question";

    const auto log = desktop.home() / "Library/Logs/wendlow-trace.log";
    desktop.press({u"alt+l"_s});
    EXPECT_TRUE(eventually([&] { return std::filesystem::exists(log); }));
    EXPECT_TRUE(is("check box", u"Keep a diagnostic log"_s));
    desktop.press({u"alt+l"_s});
    EXPECT_TRUE(eventually([&] { return !std::filesystem::exists(log); }));
    EXPECT_TRUE(gone(u"Keep a diagnostic log"_s));
}

TEST_F(Settings, ARefusalStandsBesideItsControl) {
    gateway.startWith({"--refuse", "set_reel_keep=the disk is full", "--unimplemented",
                       "set_frame_keep", "--garble", "self_names"});
    open(u"general"_s);
    const auto meetings = application->find(u"check box"_s, u"Meeting screenshots"_s);
    ASSERT_TRUE(meetings);
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
        EXPECT_TRUE(control->isChecked()) << "no switch lies";
    }
    const auto field = application->find(u"text"_s, u"Your name in meeting apps"_s);
    ASSERT_TRUE(field);
    desktop.click(field->extents().center());
    type(u"ann"_s);
    desktop.press({u"Return"_s});
    EXPECT_TRUE(says(u"Wendlow answered that with something this app does not understand."_s));
}

TEST_F(Settings, ARuleOfEachKindIsAddedAndRemoved) {
    put(desktop.home() / ".local/share/applications/xylo.desktop",
        "[Desktop Entry]\nType=Application\nName=Xylo\n");
    gateway.start();
    open(u"recording"_s);
    ASSERT_TRUE(says(u"Choose what gets remembered"_s));
    EXPECT_EQ(walked(14), "");
    const auto has = [&](const char* value, const char* kind, const char* tier) {
        return eventually([&] {
            for (const auto& each : read("getRules")[u"_0"_s].toArray()) {
                const QJsonObject rule = each.toObject();
                if (rule[u"value"_s].toString() == QLatin1String(value))
                    return rule[u"kind"_s].toString() == QLatin1String(kind) &&
                           rule[u"tier"_s].toString() == QLatin1String(tier);
            }
            return false;
        });
    };
    struct Row {
        QString words;
        const char* value;
        const char* kind;
        const char* tier;
    };
    for (const Row& row : {Row{u"Add site"_s, "radio.example", "site", "usageOnly"},
                           Row{u"Add word or phrase…"_s, "bonus", "word", "never"},
                           Row{u"Add topic"_s, "my plans", "topic", "never"},
                           Row{u"Add app"_s, "Xylo", "app", "usageOnly"}}) {
        press(row.words);
        const QString value = QString::fromLatin1(row.value);
        if (std::string_view(row.kind) == "app")
            ASSERT_TRUE(says(value)) << "it is in the list";
        else
            ASSERT_TRUE(is("push button", u"Cancel"_s));
        type(value.toLower());
        desktop.press({u"Return"_s});
        EXPECT_TRUE(has(row.value, row.kind, row.tier)) << row.value;
        ASSERT_TRUE(is("list item", value)) << row.value;
        press(u"Remove "_s + value);
        EXPECT_TRUE(gone(u"Remove "_s + value));
        EXPECT_FALSE(application->findNow(u"Cancel"_s));
    }
}

TEST_F(Settings, ThePhraseIsRevealedHiddenAndGivenBack) {
    gateway.startWith({"--recovery", "armed"});
    open(u"recovery"_s);
    ASSERT_TRUE(says(u"Your memory is encrypted"_s));
    EXPECT_EQ(walked(6), "");
    const auto words = gateway.ask(R"({"control":{"_0":{"revealPhrase":{}}}})")[u"_0"_s].toArray();
    ASSERT_EQ(words.size(), 12);
    const QString first = u"1: "_s + words[0].toString();
    EXPECT_FALSE(application->findNow(first));
    press(u"Reveal Recovery Phrase"_s);
    ASSERT_TRUE(says(first));
    EXPECT_TRUE(says(u"12: "_s + words[11].toString()));
    press(u"Copy"_s);
    EXPECT_TRUE(says(u"Copied"_s));
    press(u"Hide Recovery Phrase"_s);
    EXPECT_TRUE(gone(first));

    gateway.startWith({"--recovery", "locked"});
    desktop.press({u"Home"_s}); // nothing is asked by a key alone
    const auto general = application->find(u"page tab"_s, u"General"_s);
    ASSERT_TRUE(general);
    desktop.click(general->extents().center());
    const auto recovery = application->find(u"page tab"_s, u"Recovery"_s);
    desktop.click(recovery->extents().center());
    ASSERT_TRUE(
        says(u"this Mac holds no key for the store on disk — that is what the phrase is for"_s));
    const auto field = application->find(u"text"_s, u"Restore from a recovery phrase"_s);
    ASSERT_TRUE(field);
    desktop.click(field->extents().center());
    QStringList typed;
    for (const auto& word : words)
        typed.append(word.toString());
    type(typed.mid(1).join(u' '));
    desktop.press({u"Return"_s});
    ASSERT_TRUE(says(u"a recovery phrase is 12 words — this one has 11"_s));
    desktop.press({u"ctrl+a"_s});
    type(typed.join(u' '));
    desktop.press({u"Tab"_s, u"Return"_s});
    EXPECT_TRUE(
        says(u"Phrase accepted: it opened 1 of the 1 store file(s) Wendlow checked, and the "
             "key was installed. Nothing was deleted, moved or re-keyed. Wendlow is "
             "restarting."_s));
    EXPECT_TRUE(
        eventually([&] { return read("recoveryState")[u"_0"_s].toString() == u"armed"_s; }));
    desktop.click(general->extents().center());
    EXPECT_TRUE(is("check box", u"All day screenshots"_s)) << "the window works again";
}

} // namespace
} // namespace wendlow::testing
