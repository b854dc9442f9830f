#include "Live/EditorBrowses.h"
#include "Live/EditorLink.h"
#include "Support/ScriptedClient.h"
#include "Support/ScriptedStore.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using ::testing::ElementsAre;
using testing::ScriptedClient;
using Lane = EditorLink::Lane;
using std::chrono::milliseconds;

GatewayRequest request() {
    return ReadRequest(ReadCase::Grab{});
}

/// What came back to each caller, in the order in which they came back.
using Log = std::vector<std::string>;

struct EditorLinkAsked : ::testing::Test {
    QCoro::Task<> ask(const char* id, Lane lane) {
        const auto reply = co_await link.send(request(), lane);
        log.push_back(std::string(id) + ":" +
                      std::get<AnswerCase::Failure>(reply.response).message);
    }

    const std::shared_ptr<ScriptedClient> client = std::make_shared<ScriptedClient>();
    Log log, notes;
    LinkLeg::Instant time;
    EditorLink link{client, [this](std::string line) { notes.push_back(std::move(line)); },
                    [this] { return time; }};
};

TEST_F(EditorLinkAsked, letsAPersonGoBeforeBulkAndKeepsTheOrderWithinALane) {
    const QCoro::Task<> tasks[] = {ask("bulk1", Lane::later), ask("bulk2", Lane::later),
                                   ask("bulk3", Lane::later), ask("person1", Lane::now),
                                   ask("person2", Lane::now)};
    for (const char* const answer : {"a", "b", "c", "d", "e"}) {
        EXPECT_EQ(client->sent().size(), log.size() + 1) << "one at a time";
        client->answer(AnswerCase::Failure{answer});
    }
    EXPECT_THAT(log, ElementsAre("bulk1:a", "person1:b", "person2:c", "bulk2:d", "bulk3:e"));
    EXPECT_FALSE(client->isWaiting());
}

TEST_F(EditorLinkAsked, tellsWhenARequestWasWhereAndSaysWhatWasSlow) {
    const auto take = [this](LinkLeg& leg) -> QCoro::Task<> {
        const auto reply = co_await link.send(request(), Lane::now);
        leg = reply.leg;
    };
    LinkLeg first, second;
    const auto one = take(first);
    time += milliseconds(10);
    const auto two = take(second);
    time += milliseconds(90);
    client->answer(AnswerCase::Ok());
    EXPECT_TRUE(notes.empty()) << "a hundred milliseconds are no delay";
    time += milliseconds(101);
    client->answer(AnswerCase::Ok(), milliseconds(5));
    const auto at = [](int instant) { return LinkLeg::Instant(milliseconds(instant)); };
    EXPECT_EQ(first, (LinkLeg{at(0), at(0), at(100), std::nullopt}));
    EXPECT_EQ(second, (LinkLeg{at(10), at(100), at(201), milliseconds(5)}));
    EXPECT_THAT(notes, ElementsAre(::testing::HasSubstr("read.grab")));
}

TEST_F(EditorLinkAsked, waitsNoMoreForWhatOnlyReads) {
    const auto read = ask("read", Lane::now);
    const auto next = ask("next", Lane::now);
    link.abandon();
    EXPECT_THAT(log, ElementsAre("read:Wendlow has not answered."));
    EXPECT_EQ(client->sent().size(), 2U) << "the next one's turn has come";
    client->answer(AnswerCase::Failure{"late"});
    EXPECT_EQ(log.size(), 1U);
    client->answer(AnswerCase::Failure{"b"});
    EXPECT_EQ(log.back(), "next:b");
    const auto write = [&]() -> QCoro::Task<> {
        const GatewayRequest request = NotesRequest(NotesCase::MapPath{});
        const auto reply = co_await link.send(request, Lane::now);
        log.push_back(std::get<AnswerCase::Failure>(reply.response).message);
    };
    const auto written = write();
    link.abandon();
    EXPECT_EQ(log.size(), 2U) << "it may have been done";
    client->answer(AnswerCase::Failure{"done"});
    EXPECT_EQ(log.back(), "done");
}

/// Browses whose answers the test gives, and what each caller got.
struct Browsing {
    QCoro::Task<> query(std::string term) {
        // On a line of its own: GCC 12 destroys an aggregate twice that is built around co_await.
        EditorAsk ask{.term = term};
        const EditorAnswer answer = co_await browses.query(std::move(ask));
        got.push_back(term + ":" + (answer.ask ? answer.ask->term : "pending"));
    }

    Log got;
    testing::ScriptedPages pages;
    EditorBrowses browses{
        [this](EditorAsk ask) { return pages.query(std::move(ask), EditorAsker::page); }};
};

TEST(EditorBrowses, keepABurstToTheOneUnderWayAndTheLatest) {
    Browsing browsing;
    std::vector<QCoro::Task<>> tasks;
    for (int key = 0; key < 60; ++key)
        tasks.push_back(browsing.query("k" + std::to_string(key)));
    EXPECT_EQ(browsing.got.size(), 58U);
    EXPECT_EQ(browsing.got.back(), "k58:pending");
    browsing.pages.settle();
    browsing.pages.settle();
    EXPECT_THAT(browsing.pages.asked,
                ElementsAre(EditorAsk{.term = "k0"}, EditorAsk{.term = "k59"}));
    // The first caller started the run and gets the newest answer too.
    EXPECT_EQ(browsing.got[58], "k59:k59");
    EXPECT_EQ(browsing.got[59], "k0:k59");
    const QCoro::Task<> again[] = {browsing.query("later"), browsing.query("later")};
    browsing.pages.settle();
    EXPECT_EQ(browsing.pages.asked.size(), 3U) << "the same only once";
    EXPECT_EQ(browsing.got.size(), 62U);
    EXPECT_EQ(browsing.got.back(), "later:later");
}

} // namespace
} // namespace wendlow
