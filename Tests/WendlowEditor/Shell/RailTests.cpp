#include "Memories/MemoryFaceModel.h"
#include "Shell/EditorHost.h"
#include "Support/ScriptedClient.h"
#include "Support/ScriptedStore.h"

#include <QAbstractItemModelTester>
#include <QPointer>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

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

struct Rail {
    ScriptedStore store;
    EditorRoot root{store};
    RailModel& rail = *root.rail();
    MemoryFaceModel& face = static_cast<MemoryFaceModel&>(root.model(EditorFace::memory));
    QAbstractItemModelTester tester{&rail};

    explicit Rail(int ordinary) {
        store.page.types = types(ordinary);
        store.page.settle();
    }
};

TEST(Rail, CountsWhatIsKnownAndOpensItsPlaces) {
    Rail window(5);
    auto& [store, root, rail, face, tester] = window;
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
    Rail window(1);
    auto& [store, root, rail, face, tester] = window;
    auto& bar = *root.bar();
    const QAbstractItemModelTester barTester(&bar);
    for (int at = 0; at < 5000; ++at)
        store.scope.root.children.push_back({.id = "/s" + std::to_string(at), .title = "s"});
    store.tell();
    EXPECT_EQ(bar.rowCount(), 5002);
    EXPECT_EQ(spoken(rail).last(), "Scopes, 5001");
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

MemoryFaceModel& memoriesOf(const EditorHost& host) {
    return static_cast<MemoryFaceModel&>(host.root()->model(EditorFace::memory));
}

TEST(EditorWorlds, EachWorldHasItsOwnRoot) {
    const auto client = std::make_shared<ScriptedClient>();
    EditorWorlds worlds(client, EditorWorld::realData);
    EditorHost host(worlds);
    EXPECT_THAT(client->sent(), ElementsAre(HasSubstr("textBrowse")))
        << "the page goes before the long reads";
    QCoreApplication::processEvents();
    client->answer(AnswerCase::TextBrowse{});
    EXPECT_THAT(client->sent().back(), HasSubstr("scopeBoard"))
        << "the real data is read from the start";
    EXPECT_EQ(&worlds.store(), &worlds.live());
    const auto generation = worlds.seeded().generation();
    worlds.switchWorld(EditorWorld::dayZero);
    EXPECT_EQ(&worlds.store(), &worlds.seeded());
    EXPECT_EQ(worlds.seeded().generation(), generation + 1);
    host.root()->setFace(EditorFace::mods);
    worlds.switchWorld(EditorWorld::dayZero);
    EXPECT_EQ(host.root()->face(), EditorFace::mods) << "the world in force stays as it is";
    EXPECT_EQ(memoriesOf(host).emptyWords(), "Nothing here yet.");
    worlds.switchWorld(EditorWorld::powerUser);
    EXPECT_EQ(host.root()->face(), EditorFace::memory);
    EXPECT_GT(memoriesOf(host).cards()->rowCount(), 5);
    worlds.resetWorld();
    EXPECT_EQ(worlds.seeded().generation(), generation + 3);
    EXPECT_TRUE(host.isMadeUp());
    host.backToRealData();
    EXPECT_EQ(worlds.world(), EditorWorld::realData);
    EXPECT_FALSE(host.isMadeUp());
    QCoreApplication::processEvents();
    while (client->isWaiting())
        client->answer(client->sent().back().find("scopeBoard") != std::string::npos
                           ? GatewayResponse(AnswerCase::ScopeBoard())
                           : AnswerCase::TextBrowse());
    const auto sent = client->sent().size();
    worlds.daemonCame();
    QCoreApplication::processEvents();
    EXPECT_GT(client->sent().size(), sent) << "there is somebody to ask now";
}

TEST(EditorHost, HoldsARootAsLongAsItIsLookedAt) {
    EditorWorlds worlds(std::make_shared<ScriptedClient>(), EditorWorld::dayZero);
    EditorHost host(worlds);
    const QPointer<EditorRoot> unseen = host.root();
    worlds.switchWorld(EditorWorld::someData);
    EXPECT_FALSE(unseen);
    auto view = std::make_unique<QObject>();
    host.root()->seenBy(view.get());
    const QPointer<EditorRoot> seen = host.root();
    worlds.switchWorld(EditorWorld::powerUser);
    worlds.switchWorld(EditorWorld::dayZero);
    QCoreApplication::processEvents();
    EXPECT_TRUE(seen);
    view.reset();
    EXPECT_TRUE(seen) << "what goes with the view may still look at it";
    QCoreApplication::processEvents();
    EXPECT_FALSE(seen);
}

} // namespace
} // namespace wendlow::testing
