#include "OnboardingTrigger.h"

#include <algorithm>

namespace wendlow::OnboardingTrigger {

namespace {

constexpr std::string_view grantedState = "granted";
constexpr std::string_view deniedState = "denied";

constexpr JourneyScreen permissions[] = {JourneyScreen::screenRecording,
                                         JourneyScreen::accessibility, JourneyScreen::microphone};

bool stands(const GrantsAnswer& answer, std::string_view kind, std::string_view state) {
    return std::ranges::any_of(
        answer.grants, [&](const GrantRow& row) { return row.kind == kind && row.state == state; });
}

} // namespace

bool shouldOpenJourney(const Facts& facts) {
    if (!facts.termsAgreed || !facts.storePresent)
        return true;
    if (!facts.grants)
        return false;
    if (!std::ranges::all_of(permissions, [&](JourneyScreen screen) {
            return granted(*facts.grants, Journey::grantKind(screen));
        }))
        return true;
    return !facts.recoveryPassed || !facts.helloReceived.value_or(true);
}

bool granted(const GrantsAnswer& answer, std::string_view kind) {
    return stands(answer, kind, grantedState);
}

bool denied(const GrantsAnswer& answer, std::string_view kind) {
    return stands(answer, kind, deniedState);
}

std::optional<GrantPair> grantPair(const GrantsAnswer& answer) {
    const bool told = std::ranges::any_of(answer.grants, [](const GrantRow& row) {
        return std::ranges::any_of(permissions, [&](JourneyScreen screen) {
            return row.kind == Journey::grantKind(screen);
        });
    });
    if (!told)
        return std::nullopt;
    const auto on = [&](JourneyScreen screen) {
        return granted(answer, Journey::grantKind(screen));
    };
    return GrantPair{.screenRecording = on(JourneyScreen::screenRecording),
                     .accessibility = on(JourneyScreen::accessibility),
                     .microphone = on(JourneyScreen::microphone),
                     .microphoneDenied =
                         denied(answer, Journey::grantKind(JourneyScreen::microphone))};
}

GatewayRequest helloRequest() {
    return ReadRequest(
        ReadCase::GetByType{.type = std::string(helloKind), .path = std::string(helloScope)});
}

std::optional<bool> helloReceived(const GatewayResponse& response) {
    if (const auto* const found = std::get_if<AnswerCase::KindCards>(&response))
        return !found->cards.empty();
    if (const auto* const found = std::get_if<AnswerCase::Cards>(&response))
        return !found->_0.empty();
    return std::nullopt;
}

} // namespace wendlow::OnboardingTrigger
