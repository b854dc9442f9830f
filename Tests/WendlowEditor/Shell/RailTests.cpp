#include "Shell/ScriptedWindow.h"

#include <QAbstractItemModelTester>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using ::testing::ElementsAre;

QStringList spoken(const QAbstractItemModel& model) {
    QStringList all;
    for (int row = 0; row < model.rowCount(); ++row)
        all.append(model.data(model.index(row, 0), RailModel::SpokenRole).toString());
    return all;
}

std::vector<EditorCount> types(int ordinary) {
    std::vector<EditorCount> all{{.name = "rule", .count = 57}, {.name = "mod", .count = 2}};
    for (int at = 0; at < ordinary; ++at)
        all.push_back({.name = "type" + std::to_string(at), .count = 100 - at});
    return all;
}

TEST(Rail, CountsWhatIsKnownAndOpensItsPlaces) {
    ScriptedWindow window({}, types(5));
    auto& [store, root, face, list] = window;
    RailModel& rail = *root.rail();
    const QAbstractItemModelTester railTester(&rail);
    store.scope.read = false;
    store.tell();
    EXPECT_EQ(spoken(rail).join(u'|'), "Memories, 490|type0s, 100|type1s, 99|type2s, 98|2 more|"
                                       "Meetings|Moments|Rules, 57|Mods|Scopes");
    store.page.moments = 38214;
    store.meeting.count = 143;
    store.mod.board = EditorModsBoard{.mods = {{.slug = "a"}, {.slug = "b"}}};
    store.scope.read = true;
    store.tell();
    EXPECT_EQ(spoken(rail).mid(5).join(u'|'),
              "Meetings, 143|Moments, 38214|Rules, 57|Mods, 2|Scopes, 1");
    QList<int> apart;
    for (int row = 0; row < rail.rowCount(); ++row)
        if (rail.data(rail.index(row), RailModel::ApartRole).toBool())
            apart.append(row);
    EXPECT_THAT(apart, ElementsAre(5)) << "the faces stand apart from the places of the first";
    EXPECT_EQ(rail.hereIndex(), 0);
    rail.activate(2);
    EXPECT_EQ(rail.hereIndex(), 2);
    face.open("type4");
    EXPECT_EQ(rail.hereIndex(), 0) << "not in sight";
    rail.activate(4);
    EXPECT_EQ(rail.hereIndex(), 5) << "all types are shown now";
    rail.activate(7);
    EXPECT_EQ(root.face(), EditorFace::moments);
}

TEST(FaceBar, SaysWhichScopesAndPicksOne) {
    ScriptedWindow window({}, types(1));
    auto& [store, root, face, list] = window;
    auto& bar = *root.bar();
    const QAbstractItemModelTester barTester(&bar);
    for (int at = 0; at < 5000; ++at)
        store.scope.root.children.push_back({.id = "/s" + std::to_string(at), .title = "s"});
    store.tell();
    EXPECT_EQ(bar.rowCount(), 5002);
    EXPECT_EQ(spoken(*root.rail()).last(), "Scopes, 5001");
    EXPECT_EQ(bar.lineFor("S4999", 5), 5001);
    EXPECT_EQ(bar.lineFor("s1", 4), 12) << "the next";
    EXPECT_EQ(bar.lineFor("s2", 5001), 4) << "and around";
    EXPECT_EQ(bar.lineFor("x", 0), -1);
    bar.choose(2);
    EXPECT_EQ(bar.label(), "/s0");
    EXPECT_EQ(bar.pickedIndex(), 2);
    EditorAsk two = root.page().ask();
    two.scopes.insert("/s1");
    root.setAsk(two);
    EXPECT_EQ(bar.label(), "2 scopes");
    bar.choose(0);
    EXPECT_TRUE(root.page().ask().scopes.empty());
    bar.manageScopes();
    EXPECT_EQ(root.face(), EditorFace::scopes);
}

} // namespace
} // namespace wendlow::testing
