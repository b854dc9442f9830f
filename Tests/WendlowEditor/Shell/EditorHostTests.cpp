#include "Memories/MemoryFaceModel.h"
#include "Shell/EditorHost.h"
#include "Support/ScriptedClient.h"

#include <QPointer>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

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
