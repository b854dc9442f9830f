#include "Support/KeyWalk.h"
#include "Support/OnADesktop.h"

#include <QJsonArray>
#include <QThread>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <set>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

/// What is asked of the gateway and what a person sees must be the same, so that nothing is written
/// down here of what it holds.
class Editor : public OnADesktop {
protected:
    /// The window comes up as the menu-bar process asks for it.
    void open() {
        application.emplace(desktop, QStringList{u"--window=stats"_s});
        ASSERT_TRUE(application->window(u"Stats"_s)) << application->errors().toStdString();
        desktop.run(QStringLiteral(WENDLOW_POST_NOTIFICATION),
                    {u"works.fenmoor.wendlow.open-window"_s, u"--object"_s, u"editor"_s});
        const auto window = application->window(u"Memories"_s);
        ASSERT_TRUE(window && eventually([&] { return window->isActive(); }));
    }

    /// The names of all things of a role, from the top of the window down.
    QStringList names(const QString& role) const {
        const auto window = application->window(u"Memories"_s);
        if (!window)
            return {};
        auto things = window->all(
            [&role](const Accessible& thing) { return thing.role() == role && thing.isShowing(); });
        std::ranges::stable_sort(things, {}, [](const auto& thing) { return thing.extents().y(); });
        QStringList all;
        for (const Accessible& thing : things)
            all.append(thing.name());
        return all;
    }
    bool shows(const QString& role, const QStringList& wanted) const {
        return eventually([&] {
            const QStringList all = names(role);
            return !all.isEmpty() && all == wanted.mid(0, all.size());
        });
    }
    QStringList nameless() const { return OnADesktop::nameless(u"Memories"_s); }
    struct Hit {
        QString title, id, type;
    };
    /// What the page of a search shows of memories: five of each type.
    std::vector<Hit> hits(const std::string& term) const {
        const QJsonArray rows =
            gateway.browse(fmt::format(R"("term":"{}","limit":24)", term))["rows"_L1].toArray();
        std::vector<std::vector<Hit>> types;
        for (const auto& row : rows) {
            const Hit hit{row["title"_L1].toString(), row["id"_L1].toString(),
                          row["type"_L1].toString()};
            if (hit.type == "rule"_L1 || hit.type == "mod"_L1)
                continue;
            const auto type = std::ranges::find(
                types, hit.type, [](const auto& of) -> const auto& { return of.front().type; });
            if (type == types.end())
                types.push_back({hit});
            else if (type->size() < 5)
                type->push_back(hit);
        }
        std::vector<Hit> all;
        for (const auto& type : types)
            all.insert(all.end(), type.begin(), type.end());
        return all;
    }
    /// The page of a search shows what the gateway finds.
    bool showsHits(const std::string& term) const {
        QStringList wanted;
        for (const Hit& hit : hits(term))
            wanted.append(hit.title);
        return !wanted.isEmpty() && says(u"Results for “%1”"_s.arg(QString::fromStdString(term))) &&
               eventually([&] {
                   const QStringList all = names(u"list item"_s);
                   const auto both = std::min(all.size(), wanted.size());
                   return both > 0 && all.mid(0, both) == wanted.mid(0, both);
               });
    }
};

TEST_F(Editor, CountsWhatTheGatewayHolds) {
    gateway.start();
    open();
    const QJsonObject all = gateway.browse(R"("limit":1)");
    qint64 memories = 0;
    qint64 rules = 0;
    QStringList types;
    for (const auto& type : all["byType"_L1].toArray()) {
        const QString name = type["name"_L1].toString();
        const auto count = type["count"_L1].toInteger();
        if (name == "rule"_L1)
            rules = count;
        else if (name != "mod"_L1) {
            memories += count;
            types.append(u"%1s, %2"_s.arg(name).arg(count));
        }
    }
    qint64 moments = -1;
    for (const auto& kind : all["byKind"_L1].toArray())
        if (kind["kind"_L1] == "moment"_L1)
            moments = kind["count"_L1].toInteger();
    const QString list = gateway.ask(R"({"read":{"_0":{"meetingList":{}}}})")["_0"_L1].toString();
    const auto meetings = (u'\n' + list).count("\n- "_L1);
    std::set<QString> scopes{u"/"_s};
    for (const auto& row : gateway.ask(R"({"notes":{"_0":{"scopeBoard":{}}}})")["_0"_L1].toArray())
        for (QString path = row["path"_L1].toString(); path.size() > 1;
             path.truncate(path.lastIndexOf(u'/')))
            scopes.insert(path);
    const auto mods =
        gateway.ask(R"({"read":{"_0":{"modBoard":{}}}})")["_0"_L1]["mods"_L1].toArray().size();
    ASSERT_GT(types.size(), 3);
    EXPECT_TRUE(
        shows(u"page tab"_s, {u"Memories, %1"_s.arg(memories), types[0], types[1], types[2],
                              u"%1 more"_s.arg(types.size() - 3), u"Meetings, %1"_s.arg(meetings),
                              u"Moments, %1"_s.arg(moments), u"Rules, %1"_s.arg(rules),
                              u"Mods, %1"_s.arg(mods), u"Scopes, %1"_s.arg(scopes.size())}))
        << names(u"page tab"_s).join(u'|').toStdString();
    EXPECT_EQ(names(u"page tab"_s).size(), 10) << "none is scrolled away";
    EXPECT_TRUE(shows(u"list item"_s, types));
    // Among the newest is one whose title somebody has pasted.
    press(types[0]);
    const auto isCut = [](const QString& name) {
        return name.size() == 601 && name.back() == u'…';
    };
    EXPECT_TRUE(eventually([&] { return std::ranges::any_of(names(u"list item"_s), isCut); }));
    EXPECT_THAT(nameless(), ::testing::IsEmpty());
    press(u"Meetings, %1"_s.arg(meetings));
    EXPECT_TRUE(says(u"%1 meetings"_s.arg(meetings)));
    EXPECT_THAT(nameless(), ::testing::IsEmpty());
}

TEST_F(Editor, FindsAndOpensAMemoryByKeyAlone) {
    gateway.start();
    open();
    // One that the list of its type does not begin with.
    const auto found = hits("backup");
    const auto beyond = std::ranges::find_if(found, [&](const Hit& hit) {
        const QJsonObject page =
            gateway.browse(fmt::format(R"("limit":50,"type":"{}")", hit.type.toStdString()));
        return std::ranges::none_of(page["rows"_L1].toArray(), [&](const auto& row) {
            return row["id"_L1].toString() == hit.id;
        });
    });
    ASSERT_NE(beyond, found.end());
    const auto& [title, id, type] = *beyond;
    write(u"backup"_s);
    ASSERT_TRUE(showsHits("backup"));
    EXPECT_THAT(nameless(), ::testing::IsEmpty());
    desktop.press(QStringList(beyond - found.begin() + 1, u"Down"_s) + QStringList{u"Up"_s});
    desktop.press({u"Return"_s});

    const QJsonObject card =
        gateway
            .ask(fmt::format(R"({{"read":{{"_0":{{"grab":{{"id":"{}","full":false}}}}}}}})",
                             id.toStdString()))["_0"_L1]
            .toObject();
    EXPECT_TRUE(says(card["snippet"_L1].toString()));
    const auto opened = [&] {
        return application->window(u"Memories"_s)->find([&](const Accessible& thing) {
            return thing.role() == u"list item"_s && thing.isChecked();
        });
    };
    const auto row = opened();
    ASSERT_TRUE(row);
    EXPECT_EQ(row->name(), title);
    const QString why = card["why"_L1].toString();
    EXPECT_TRUE(row->description().contains(why) || says(u"Why: "_s + why));
    EXPECT_THAT(nameless(), ::testing::IsEmpty());
    desktop.press({u"Escape"_s});
    EXPECT_TRUE(application->find(u"heading"_s, u"Results for “backup”"_s));
    const KeyWalk walk(desktop, *application, u"Memories"_s);
    EXPECT_TRUE(eventually([&] { return walk.focused() == QStringList(u"list item "_s + title); }))
        << walk.focused().join(u", "_s).toStdString();
    desktop.press({u"Escape"_s, u"Escape"_s});
    EXPECT_TRUE(eventually([&] { return !opened(); }));
    desktop.press({u"Escape"_s});
    EXPECT_TRUE(application->find(u"heading"_s, u"Memories"_s));
}

TEST_F(Editor, NarrowsATypeByAFilterAndAScope) {
    gateway.start();
    open();
    const QJsonObject whole = gateway.browse(R"("limit":1,"type":"decision")");
    press(u"decisions, %1"_s.arg(whole["total"_L1].toInteger()));
    EXPECT_TRUE(says(u"%1 memories"_s.arg(whole["total"_L1].toInteger())));
    const QJsonArray keys = whole["byFilter"_L1].toArray();
    const auto census = std::ranges::find_if(
        keys, [](const auto& each) { return each["values"_L1][0]["value"_L1].isString(); });
    ASSERT_NE(census, keys.end());
    const QString key = (*census)["key"_L1].toString();
    const QJsonObject value = (*census)["values"_L1][0].toObject();
    press(key);
    const QString box =
        u"%1, %2"_s.arg(value["value"_L1].toString()).arg(value["count"_L1].toInteger());
    press(box);
    const auto narrowed = gateway.browse(
        fmt::format(R"("limit":50,"type":"decision","filters":[{{"key":"{}","value":"{}"}}])",
                    key.toStdString(), value["value"_L1].toString().toStdString()));
    EXPECT_TRUE(says(
        u"%1 of %2"_s.arg(narrowed["total"_L1].toInteger()).arg(whole["total"_L1].toInteger())));
    EXPECT_THAT(nameless(), ::testing::IsEmpty());
    QStringList titles;
    for (const auto& row : narrowed["rows"_L1].toArray())
        titles.append(row["title"_L1].toString());
    EXPECT_TRUE(shows(u"list item"_s, titles));
    // A box that was ticked when it was made is told as it is turned.
    press(key);
    press(key);
    const auto isTicked = [&] {
        const auto found = application->find(u"check box"_s, box);
        return found && found->isChecked();
    };
    EXPECT_TRUE(isTicked());
    press(box);
    EXPECT_TRUE(eventually([&] { return !isTicked(); }));
    press(box);
    EXPECT_TRUE(eventually(isTicked));
    press(u"clear"_s);
    EXPECT_TRUE(says(u"%1 memories"_s.arg(whole["total"_L1].toInteger())));
    press(u"scope: /"_s);
    EXPECT_TRUE(says(u"(all scopes)"_s));
    EXPECT_THAT(nameless(), ::testing::IsEmpty());
    press(u"/studio/press"_s);
    press(u"scope: /studio/press"_s);
    const auto picked = application->find(u"menu item"_s, u"/studio/press"_s);
    EXPECT_TRUE(picked && picked->isChecked());
}

TEST_F(Editor, OutlivesTheGatewayInMidSearch) {
    gateway.start();
    open();
    write(u"backup"_s);
    ASSERT_TRUE(showsHits("backup"));
    // Another tool writes a memory, and it is found at once.
    gateway.ask(R"({"notes":{"_0":{"write":{"text":"Zeppelins dock at the north mast.",)"
                R"("why":"said so","writer":"codex","type":"fact","path":"/studio"}}}})");
    desktop.press({u"ctrl+f"_s});
    write(u"zeppelins"_s);
    ASSERT_TRUE(showsHits("zeppelins"));

    const QStringList before = names(u"list item"_s);

    gateway.wedge();
    write(u" north"_s);
    EXPECT_TRUE(says(u"Results for “zeppelins north”"_s));
    EXPECT_EQ(names(u"list item"_s), before) << "what was found stays meanwhile";
    gateway.kill();
    EXPECT_TRUE(says(u"Wendlow isn't running — start it to access your memory."_s));
    gateway.start();
    EXPECT_TRUE(showsHits("zeppelins north")) << "it is searched again by itself";
    write(u" mast"_s);
    EXPECT_TRUE(showsHits("zeppelins north mast"));
    EXPECT_FALSE(
        names(u"alert"_s).contains(u"Wendlow isn't running — start it to access your memory."_s));
}

TEST_F(Editor, SaysHowTheGatewayFailsAndReadsAgainWhenTold) {
    open();
    const auto reset = [&] {
        press(u"World"_s);
        press(u"Reset World"_s);
    };
    EXPECT_TRUE(says(u"Wendlow isn't running — start it to access your memory."_s));
    EXPECT_THAT(nameless(), ::testing::IsEmpty());
    // It is read again by itself as soon as there is somebody to ask.
    gateway.start();
    EXPECT_TRUE(eventually([&] { return names(u"list item"_s).size() > 3; }));
    EXPECT_TRUE(eventually([&] { return names(u"alert"_s).isEmpty(); }));
    for (const auto& [replies, words] :
         {std::pair("refuse", "Wendlow is running but refused this connection — this binary isn't "
                              "signed with the daemon's expected identity (sign it: "
                              "Scripts/sign.sh)."),
          std::pair("rubbish", "bad reply"),
          std::pair("wire-2", "Wendlow updated; this session's bridge is older than the daemon, "
                              "restart the session"),
          std::pair("answer,nested", "bad reply"),
          std::pair("huge", "Wendlow answered with something this mod does not understand.")}) {
        gateway.start(replies);
        reset();
        EXPECT_TRUE(says(QString::fromUtf8(words))) << replies;
    }
    gateway.start("silent");
    reset();
    // A daemon that never gets round to an answer holds up nothing else.
    press(u"World"_s);
    press(u"Some data"_s);
    EXPECT_TRUE(application->find(u"heading"_s, u"Memories"_s));
    EXPECT_TRUE(eventually([&] { return names(u"list item"_s).size() > 3; }));
    EXPECT_THAT(nameless(), ::testing::IsEmpty());
    desktop.press({u"ctrl+1"_s});
    EXPECT_TRUE(says(u"Nothing here yet."_s));
    gateway.start();
    desktop.press({u"ctrl+4"_s});
    EXPECT_TRUE(eventually([&] { return names(u"list item"_s).size() > 3; }));
}

TEST_F(Editor, IsReadInTheOrderInWhichItIsSeen) {
    gateway.start();
    open();
    const auto inOrder = [&](const QString& role) {
        const auto window = application->window(u"Memories"_s);
        std::vector<int> tops;
        for (const Accessible& thing : window->all(
                 [&](const Accessible& each) { return each.isShowing() && each.role() == role; }))
            tops.push_back(thing.extents().y());
        return tops.size() > 3 && std::ranges::is_sorted(tops);
    };
    const auto door = application->findNamed(u"%1 more"_s.arg(names(u"list item"_s).size() - 3));
    ASSERT_TRUE(door && door->act(u"Press"_s));
    EXPECT_TRUE(eventually([&] { return inOrder(u"page tab"_s); })) << "the types behind the door";
    press(names(u"list item"_s)[0]);
    for (const char* const key : {"End", "Prior", "Home", "Next", "Next", "Prior", "Prior"}) {
        desktop.press({QLatin1String(key)});
        EXPECT_TRUE(eventually([&] { return inOrder(u"list item"_s); })) << key;
    }
}

TEST_F(Editor, EveryKeyLeavesTheFocusAtOneThingInSight) {
    gateway.start();
    open();
    const KeyWalk walk(desktop, *application, u"Memories"_s);
    const auto times = [](int count, const char* key) {
        return QStringList(count, QLatin1String(key));
    };
    const auto keys = [](const char* line) {
        return QString::fromUtf8(line).split(u' ', Qt::SkipEmptyParts);
    };
    const std::pair<const char*, QStringList> walks[] = {
        {"the rail and its door", keys("Tab Tab Return Down Down Up Right Left shift+Tab Tab")},
        {"the cards", keys("ctrl+1 ctrl+4 Right Right Down End Home Return")},
        {"the rows", keys("Down End Home Next Prior Return Menu Down Escape shift+F10 Escape "
                          "ctrl+c Down Up Escape")},
        {"all of a list", times(14, "Tab") + times(14, "shift+Tab")},
        {"the filters", keys("Right Down Right space Down Escape Left Escape")},
        {"back to the cards", keys("Right Escape Escape Right Return Escape")},
        {"a search", keys("b a c k u p Down Down Up Next Prior Tab Tab Return Escape Down Return "
                          "alt+Left Home End Return Escape Escape Escape")},
        {"the faces to come", keys("ctrl+f Tab") + times(9, "Down") + keys("Right Left Up Right")},
        {"the scopes", keys("ctrl+f Tab Right shift+Tab space Down End Home Escape space Return")},
        {"made-up worlds", keys("ctrl+3 Right Return Down shift+Tab ctrl+1 Tab Right Tab Tab "
                                "ctrl+2 shift+Tab Return")},
        {"the menu", keys("F10 Right Escape")}};
    for (const auto& [where, path] : walks)
        EXPECT_EQ(walk.press(path).join(u'\n').toStdString(), "") << where;
    gateway.kill();
    desktop.press({u"ctrl+1"_s, u"ctrl+4"_s});
    EXPECT_TRUE(says(u"Wendlow isn't running — start it to access your memory."_s));
    EXPECT_EQ(walk.press(keys("Right Tab Tab Return Tab shift+Tab Return space"))
                  .join(u'\n')
                  .toStdString(),
              "");
    gateway.start();
    EXPECT_TRUE(eventually([&] { return names(u"list item"_s).size() > 3; }));
    EXPECT_EQ(walk.press(keys("Down Tab")).join(u'\n').toStdString(), "");
}

TEST_F(Editor, SaysAloudWhatTheFocusDoesNotShow) {
    gateway.start();
    open();
    const auto isSaid = [&](const QString& words) {
        return eventually([&] {
            return std::ranges::any_of(names(u"notification"_s),
                                       [&](const QString& name) { return name.endsWith(words); });
        });
    };
    write(u"backup"_s);
    ASSERT_TRUE(showsHits("backup"));
    EXPECT_TRUE(isSaid(u" results for “backup”"_s));
    desktop.press({u"Down"_s});
    const auto hit = application->find(u"list item"_s, hits("backup")[1].title);
    ASSERT_TRUE(hit);
    EXPECT_TRUE(isSaid(hit->name() + u", "_s + hit->description()));
    desktop.press({u"Return"_s});
    EXPECT_TRUE(eventually([&] {
        desktop.press({u"ctrl+c"_s});
        QThread::msleep(400); // what is said again and again is said once it rests
        return names(u"notification"_s).contains(u"Copied"_s);
    }));
    // A scope that was found is the selected one of its face.
    desktop.press({u"ctrl+f"_s});
    write(u"studio"_s);
    EXPECT_TRUE(says(u"Results for “studio”"_s));
    desktop.press({u"Next"_s, u"Next"_s, u"Next"_s, u"Next"_s, u"Return"_s});
    EXPECT_TRUE(application->find(u"heading"_s, u"Scopes"_s));
    EXPECT_TRUE(says(u"Rename… (writes a script)"_s));
    gateway.wedge();
    desktop.press({u"alt+Left"_s});
    EXPECT_TRUE(application->find(u"heading"_s, u"Results for “studio”"_s));
    desktop.press({u"ctrl+f"_s, u"BackSpace"_s});
    write(u"harbour"_s);
    EXPECT_TRUE(isSaid(u"Still waiting for Wendlow…"_s)) << "of a gateway that says nothing";
    EXPECT_TRUE(says(u"Searching memories…"_s) && says(u"Try again"_s));
}

} // namespace
} // namespace wendlow::testing
