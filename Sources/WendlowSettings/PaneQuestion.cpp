#include "PaneQuestion.h"

#include <fmt/format.h>

#include <utility>

namespace wendlow::PaneQuestion {

QCoro::Task<GatewayResponse> ask(std::shared_ptr<WendlowClient> client, GatewayRequest request) {
    co_return co_await client->send(std::move(request));
}

std::string refusal(const GatewayResponse& answer) {
    if (std::holds_alternative<AnswerCase::Ok>(answer))
        return {};
    if (const auto* const failure = std::get_if<AnswerCase::Failure>(&answer))
        return failure->message;
    if (const auto* const unknown = std::get_if<AnswerCase::Unimplemented>(&answer))
        return fmt::format("This Wendlow daemon does not accept {} yet — quitting and reopening "
                           "Wendlow picks up the new one.",
                           unknown->verb);
    return "Wendlow answered that with something this app does not understand.";
}

} // namespace wendlow::PaneQuestion
