#include "PaneQuestion.h"

#include "Say.h"

#include <fmt/format.h>

#include <utility>

namespace wendlow::PaneQuestion {

namespace {

constexpr const char* notAccepted =
    sayLater("This Wendlow daemon does not accept {} yet — quitting and reopening Wendlow picks up "
             "the new one.");

} // namespace

QCoro::Task<GatewayResponse> ask(std::shared_ptr<WendlowClient> client, GatewayRequest request) {
    co_return co_await client->send(std::move(request));
}

std::string refusal(const GatewayResponse& answer) {
    if (std::holds_alternative<AnswerCase::Ok>(answer))
        return {};
    if (const auto* const failure = std::get_if<AnswerCase::Failure>(&answer))
        return failure->message;
    if (const auto* const unknown = std::get_if<AnswerCase::Unimplemented>(&answer))
        return say(notAccepted, unknown->verb);
    return say(notUnderstood);
}

std::string logged(const GatewayResponse& answer) {
    if (std::holds_alternative<AnswerCase::Ok>(answer))
        return {};
    if (const auto* const failure = std::get_if<AnswerCase::Failure>(&answer))
        return failure->message;
    const auto* const unknown = std::get_if<AnswerCase::Unimplemented>(&answer);
    return unknown ? fmt::format(notAccepted, unknown->verb) : notUnderstood;
}

} // namespace wendlow::PaneQuestion
