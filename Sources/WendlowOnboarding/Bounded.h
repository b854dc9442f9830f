#pragma once

#include <QCoroTask>
#include <QCoroTimer>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>
#include <utility>

namespace wendlow {

/// A question and a clock, of which the first to end tells. The late one speaks to nobody.
template<class Answer> struct BoundedRace {
    std::optional<Answer> answer;
    QTimer deadline;
};

template<class Answer>
QCoro::Task<> answerInto(std::shared_ptr<BoundedRace<Answer>> race, QCoro::Task<Answer> question) {
    Answer answer = co_await question;
    race->answer.emplace(std::move(answer));
    if (race->deadline.isActive())
        race->deadline.start(std::chrono::milliseconds::zero());
}

/// What the question gives within the limit; nothing if it takes longer. A thread with an event
/// loop.
template<class Answer>
QCoro::Task<std::optional<Answer>> bounded(QCoro::Task<Answer> question,
                                           std::chrono::milliseconds limit) {
    const auto race = std::make_shared<BoundedRace<Answer>>();
    race->deadline.setSingleShot(true);
    race->deadline.start(limit);
    // Runs on by itself where nobody waits for it any more.
    answerInto(race, std::move(question));
    if (!race->answer)
        co_await race->deadline;
    co_return std::exchange(race->answer, std::nullopt);
}

} // namespace wendlow
