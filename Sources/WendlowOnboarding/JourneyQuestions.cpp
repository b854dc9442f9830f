#include "JourneyQuestions.h"

#include "ClientProfile.h"
#include "MenuHealth.h"
#include "OnboardingTrigger.h"
#include "Say.h"

#include <system_error>
#include <utility>

namespace wendlow::JourneyQuestions {

QCoro::Task<std::optional<GrantsAnswer>> askGrantsAnswer(Client client) {
    GatewayRequest request = ReadRequest(ReadCase::Grants{});
    const GatewayResponse response = co_await client->send(std::move(request));
    const auto* const answer = std::get_if<AnswerCase::Grants>(&response);
    co_return answer ? std::optional(answer->_0) : std::nullopt;
}

QCoro::Task<std::optional<GrantPair>> askGrants(Client client) {
    auto question = askGrantsAnswer(std::move(client));
    const std::optional<GrantsAnswer> answer = co_await question;
    co_return answer ? OnboardingTrigger::grantPair(*answer) : std::nullopt;
}

QCoro::Task<bool> askStorePresent(Client client, std::filesystem::path database) {
    std::error_code failed;
    if (std::filesystem::is_regular_file(database, failed))
        co_return true;
    // A gateway that keeps its store elsewhere says that it records, or would.
    GatewayRequest request = ReadRequest(ReadCase::Health{});
    const GatewayResponse response = co_await client->send(std::move(request));
    if (!std::holds_alternative<AnswerCase::Text>(response))
        co_return false;
    co_return !MenuHealth::decide(response, std::nullopt, ClientProfile::production).isAlert();
}

QCoro::Task<RecoveryRead> askPhrase(Client client) {
    GatewayRequest request = ControlRequest(ControlCase::RevealPhrase{});
    GatewayResponse response = co_await client->send(std::move(request));
    if (auto* const phrase = std::get_if<AnswerCase::Phrase>(&response))
        co_return RecoveryRead(std::move(phrase->_0));
    if (auto* const failure = std::get_if<AnswerCase::Failure>(&response))
        co_return RecoveryRead(RecoveryFailed{std::move(failure->message)});
    co_return RecoveryRead(RecoveryFailed{say("recovery phrase unavailable").toStdString()});
}

QCoro::Task<> askForGrant(Client client, std::string kind) {
    GatewayRequest request = ControlRequest(ControlCase::RequestGrant{.kind = std::move(kind)});
    [[maybe_unused]] const GatewayResponse response = co_await client->send(std::move(request));
}

QCoro::Task<std::optional<bool>> askHello(Client client) {
    GatewayRequest request = OnboardingTrigger::helloRequest();
    const GatewayResponse response = co_await client->send(std::move(request));
    co_return OnboardingTrigger::helloReceived(response);
}

} // namespace wendlow::JourneyQuestions
