#include "Support/OnADesktop.h"

#include <QJsonArray>

#include <fmt/format.h>
#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

const QString before = u"Never remove a backup before it has been read back"_s;

/// The rules in the real window, held against what the gateway holds.
class Rules : public OnADesktop {
protected:
    void open() {
        application.emplace(desktop, QStringList{u"--window=editor"_s});
        const auto window = application->window(u"Memories"_s);
        ASSERT_TRUE(window) << application->errors().toStdString();
        ASSERT_TRUE(eventually([&] { return window->isActive(); }));
        press(u"Rules, %1"_s.arg(rules().size()));
    }
    void pickScope(const QString& scope) const {
        press(u"scope: /"_s);
        press(scope);
    }
    /// What the gateway holds of rules.
    QJsonArray rules() const {
        return gateway.browse(R"("limit":500,"type":"rule")")["rows"_L1].toArray();
    }
    QJsonObject rule(const QString& title) const {
        for (const auto& row : rules())
            if (row["title"_L1].toString() == title)
                return row.toObject();
        return {};
    }
};

TEST_F(Rules, AreEditedAndAddedByKeyAlone) {
    gateway.start();
    open();
    EXPECT_TRUE(is("heading", u"Rules riding every prompt"_s));
    EXPECT_TRUE(is("heading", u"Rules filed at every scope"_s));
    // The first rule of the root rides every prompt, and is the first stop.
    const QString id = rule(before)["id"_L1].toString();
    ASSERT_TRUE(is("list item", before));
    desktop.press({u"Tab"_s, u"Right"_s, u"Return"_s});
    ASSERT_TRUE(is("text", u"The rule"_s));
    write(u"never"_s);
    desktop.press({u"Escape"_s});
    EXPECT_EQ(rule(before)["id"_L1].toString(), id) << "Escape writes nothing";
    desktop.press({u"Return"_s});
    write(u"Keep each backup"_s);
    desktop.press({u"Return"_s});
    EXPECT_TRUE(says(u"Saved %1."_s.arg(id)));
    EXPECT_TRUE(is("list item", u"Keep each backup"_s));
    EXPECT_EQ(rule(u"Keep each backup"_s)["id"_L1].toString(), id);
    EXPECT_TRUE(rule(before).isEmpty());

    desktop.press({u"ctrl+n"_s});
    ASSERT_TRUE(is("heading", u"New rule at /"_s));
    write(u"Boats first"_s);
    desktop.press({u"Tab"_s});
    write(u"One was lost"_s);
    // Past the choices, by the module of a new name, to the button.
    desktop.press({u"Tab"_s, u"Down"_s, u"Up"_s, u"Tab"_s});
    write(u"harbours"_s);
    desktop.press({u"Tab"_s, u"Tab"_s, u"Return"_s});
    EXPECT_TRUE(eventually([&] { return !rule(u"Boats first"_s).isEmpty(); }));
    const QJsonObject added = rule(u"Boats first"_s);
    EXPECT_EQ(added["scope"_L1].toString(), u"/");
    EXPECT_EQ(added["filters"_L1][0]["value"_L1].toString(), u"harbours");
    EXPECT_TRUE(says(u"Saved %1."_s.arg(added["id"_L1].toString())));
    // The focus is back in the list: the keys walk on, and no letter went astray.
    desktop.press({u"End"_s});
    EXPECT_TRUE(is("list item", u"writing"_s)) << "the last group is in sight";
    desktop.press({u"Home"_s, u"Return"_s});
    EXPECT_TRUE(is("text", u"The rule"_s));
}

TEST_F(Rules, SayEachGapInItsSentence) {
    gateway.start();
    gateway.ask(R"({"notes":{"_0":{"write":{"text":"As we always did","why":"so","writer":"codex",)"
                R"("type":"rule","path":"/studio/atlas","filters":{"topic":"old-habits"}}}}})");
    open();
    pickScope(u"/studio/atlas"_s);
    EXPECT_TRUE(is("heading", u"The stack a session receives at /studio/atlas"_s));
    // What is filed begins below what is in sight.
    const auto walk = [&](const QString& key) {
        const auto first = application->find(u"list item"_s, before);
        ASSERT_TRUE(first);
        desktop.click(first->extents().center());
        desktop.press({key});
    };
    walk(u"End"_s);
    EXPECT_TRUE(is("list item", u"unreadable rules-file tag — delivering nothing"_s));
    desktop.press({u"Home"_s});
    // Modules of one name at two scopes are each read for their own sentence.
    const QString card =
        gateway
            .ask(R"({"read":{"_0":{"standingRules":{"card":true,"scope":"/studio/atlas"}}}})")
                ["card"_L1]
            .toString();
    for (const char* const sentence :
         {"Read before adding or changing a test.", "Read before work that touches testing."})
        EXPECT_TRUE(card.contains(u"<testing trigger=\"%1\""_s.arg(sentence))) << sentence;
    gateway.start("answer", "overflow");
    const auto cut =
        gateway
            .ask(R"({"read":{"_0":{"standingRules":{"scope":"/studio/atlas"}}}})")["_0"_L1]
                                                                                  ["overflow"_L1]
            .toInteger();
    ASSERT_GT(cut, 1);
    const std::pair<const char*, QString> gaps[] = {
        {"overflow",
         u"%1 deeper rules were dropped by the daemon’s sanity ceiling — the shallow ones survive."_s
             .arg(cut)},
        {"no-card", u"Nothing is compiled at /studio/atlas yet. The rules below are filed in the "
                    "store; the Delivery pass writes their rules modules and stamps the revs."_s},
        {"other-scope",
         u"Wendlow was asked about /studio/atlas and answered about /, so nothing compiled is "
         "shown: rules from the wrong scope under this heading would be worse than none. The rules "
         "filed at /studio/atlas are below — they are the store, which is truth. (An older Wendlow "
         "that doesn’t understand a scope argument answers like this.)"_s},
        {"warning",
         u"⚠ Wendlow — the Delivery pass has not run since yesterday, so this card is old."_s},
        {"older-card", u"The stack a session receives at /studio/atlas"_s},
    };
    for (const auto& [rules, words] : gaps) {
        gateway.start("answer", rules);
        press(u"World"_s);
        press(u"Reset World"_s);
        EXPECT_TRUE(says(words)) << rules;
    }
    walk(u"End"_s);
    EXPECT_TRUE(is("list item", u"old-habits"_s)) << "an older daemon still delivers it";
    desktop.press({u"Home"_s});
    gateway.start("answer", "other-path");
    press(u"World"_s);
    press(u"Reset World"_s);
    EXPECT_TRUE(says(gaps[2].second)) << "a walk for another path";
    EXPECT_TRUE(is("heading", u"Rules riding every prompt"_s)) << "the card is shown all the same";
}

TEST_F(Rules, LoseNoWordsToADaemonThatGoes) {
    gateway.start();
    open();
    const QString gone = u"Wendlow isn't running — start it to access your memory."_s;
    ASSERT_TRUE(is("list item", before));
    desktop.press({u"Tab"_s, u"Right"_s, u"Return"_s});
    ASSERT_TRUE(is("text", u"The rule"_s));
    write(u"Keep them all"_s);
    gateway.wedge();
    desktop.press({u"Return"_s});
    EXPECT_TRUE(is("text", u"The rule"_s)) << "it stays in its field meanwhile";
    gateway.kill();
    EXPECT_TRUE(says(gone));
    EXPECT_TRUE(is("list item", before));
    // A new rule meets the same, and stays in its sheet.
    desktop.press({u"ctrl+n"_s});
    ASSERT_TRUE(is("heading", u"New rule at /"_s));
    write(u"Boats first"_s);
    desktop.press({u"Tab"_s});
    write(u"so"_s);
    desktop.press({u"Tab"_s, u"space"_s, u"Tab"_s, u"Return"_s});
    EXPECT_TRUE(says(gone));
    EXPECT_TRUE(is("heading", u"New rule at /"_s));
    gateway.start();
    desktop.press({u"Return"_s});
    EXPECT_TRUE(eventually([&] { return !rule(u"Boats first"_s).isEmpty(); }));
    // What was typed into the row is still there when it is edited again.
    ASSERT_TRUE(eventually(
        [&] { return !application->find(u"heading"_s, u"New rule at /"_s).has_value(); }));
    desktop.press({u"Home"_s, u"Return"_s});
    ASSERT_TRUE(is("text", u"The rule"_s));
    desktop.press({u"Return"_s});
    EXPECT_TRUE(eventually([&] { return !rule(u"Keep them all"_s).isEmpty(); }));
}

} // namespace
} // namespace wendlow::testing
