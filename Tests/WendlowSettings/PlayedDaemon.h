#pragma once

#include "Client.h"
#include "WireCodec.h"

#include <algorithm>
#include <coroutine>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace wendlow::testing {

/// A daemon whose answers a test gives, by verb; of several to one verb the last stays. It answers
/// at once, but for the verbs that are held.
class PlayedDaemon final : public WendlowClient {
public:
    using Answers = std::map<std::string, std::deque<GatewayResponse>, std::less<>>;

    ~PlayedDaemon() override { release(); }

    QCoro::Task<GatewayResponse> send(GatewayRequest request) override {
        const std::string verb(request.verb());
        asked.push_back(verb);
        sent.push_back(WireCodec::encode(request).value());
        if (held.contains(verb))
            co_await Hold{waiting};
        auto& known = answers[verb];
        if (known.empty())
            co_return AnswerCase::Failure{"the daemon is away"};
        GatewayResponse answer = known.front();
        if (known.size() > 1)
            known.pop_front();
        co_return answer;
    }

    void answer(std::string_view verb, std::deque<GatewayResponse> list) {
        answers[std::string(verb)] = std::move(list);
    }
    /// Lets all that is held go, in the order in which it was asked.
    void release() {
        held.clear();
        for (const auto handle : std::exchange(waiting, {}))
            handle.resume();
    }
    /// The same the other way round: the last one is answered first.
    void releaseBackwards() {
        std::ranges::reverse(waiting);
        release();
    }
    /// What was asked since the last time, by verb.
    std::vector<std::string> newlyAsked() { return std::exchange(asked, {}); }

    std::set<std::string, std::less<>> held;
    std::vector<std::string> asked;
    std::vector<std::string> sent; ///< as JSON, all of it
    Answers answers;

private:
    struct Hold {
        std::vector<std::coroutine_handle<>>& waiting;
        bool await_ready() const noexcept { return false; }
        void await_suspend(std::coroutine_handle<> handle) const { waiting.push_back(handle); }
        void await_resume() const noexcept {}
    };
    std::vector<std::coroutine_handle<>> waiting;
};

} // namespace wendlow::testing
