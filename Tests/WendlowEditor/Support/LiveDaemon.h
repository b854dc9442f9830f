#pragma once

#include "Live/EditorLiveStore.h"
#include "Support/ScriptedClient.h"

#include <gmock/gmock.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace wendlow::testing {

inline GatewayResponse failure(std::string words) {
    return AnswerCase::Failure{std::move(words)};
}

/// A page of nothing with these counts.
inline AnswerCase::TextBrowse page(std::int64_t total, std::vector<NameCount> types = {}) {
    AnswerCase::TextBrowse answer;
    answer._0.ready = true;
    answer._0.total = total;
    answer._0.byType = std::move(types);
    return answer;
}

/// The live store over a daemon whose answers the test gives.
struct LiveDaemon {
    LiveDaemon() {
        QObject::connect(store.get(), &EditorStore::changed,
                         [this](EditorChanges what) { changes.push_back(what); });
    }

    /// The next request, which must hold these words, is answered so.
    void answer(const std::string& words, GatewayResponse response) {
        ASSERT_TRUE(client->isWaiting()) << words;
        ASSERT_THAT(client->sent().back(), ::testing::HasSubstr(words));
        client->answer(std::move(response));
    }
    /// Reads the store from a daemon with three notes and a rule, as far as its list of meetings.
    void openToMeetings() {
        store->resetWorld();
        AnswerCase::ScopeBoard scopes;
        scopes._0 = {{.path = "/work/a", .folders = {"/home/p/a"}, .kinds = {{"note", 3}}}};
        answer("scopeBoard", scopes);
        auto all = page(4, {{"note", 3}, {"rule", 1}});
        all._0.byKind = {{"memory", 4}, {"moment", 7}, {"dream", 1}};
        answer("textBrowse", all);
    }
    void open() {
        openToMeetings();
        answer("meetingList", AnswerCase::Text{"- meeting:call:1 · today · 1 h · Ada · 3 lines"});
        ASSERT_TRUE(store->loaded());
    }
    /// Keeps what a call comes to.
    template<class Value>
    QCoro::Task<> keep(QCoro::Task<Value> task, std::optional<Value>& result) {
        result = co_await task;
    }
    /// What a call comes to when its one request is answered so.
    template<class Value> Value now(QCoro::Task<Value> task, GatewayResponse response) {
        std::optional<Value> result;
        const auto kept = keep(std::move(task), result);
        client->answer(std::move(response));
        return result.value();
    }

    std::vector<std::string> notes;
    std::vector<EditorChanges> changes;
    LinkLeg::Instant time;
    std::shared_ptr<ScriptedClient> client = std::make_shared<ScriptedClient>();
    std::unique_ptr<EditorLiveStore> store = std::make_unique<EditorLiveStore>(
        client, [this](std::string line) { notes.push_back(std::move(line)); },
        [this] { return time; });
};
struct LiveStore : ::testing::Test, LiveDaemon {};

} // namespace wendlow::testing
