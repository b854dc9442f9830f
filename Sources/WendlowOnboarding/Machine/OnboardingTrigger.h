#pragma once

#include "GatewayRequest.h"
#include "GatewayResponse.h"
#include "Journey.h"

#include <optional>
#include <string_view>

/// Whether the journey opens by itself at a start, and how the daemon's answers are read. Pure; any
/// thread.
namespace wendlow::OnboardingTrigger {

/// The record that an AI files when it is greeted for the first time: its type, and where it is
/// looked for.
inline constexpr std::string_view helloKind = "onboarding";
inline constexpr std::string_view helloScope = "/";

struct Facts {
    bool storePresent = false;
    std::optional<GrantsAnswer> grants = std::nullopt; ///< nothing: the daemon did not answer
    std::optional<bool> helloReceived = std::nullopt;  ///< nothing: it is not known
    bool recoveryPassed = false;
    bool termsAgreed = false;
};

/// A daemon that does not answer, and a hello that is not known, open nothing.
bool shouldOpenJourney(const Facts& facts);

bool granted(const GrantsAnswer& answer, std::string_view kind);
bool denied(const GrantsAnswer& answer, std::string_view kind);

/// Nothing where none of the three kinds is told; one that lacks beside others is not granted.
std::optional<GrantPair> grantPair(const GrantsAnswer& answer);

/// The question for the hello, and what its answer says; nothing: not known.
GatewayRequest helloRequest();
std::optional<bool> helloReceived(const GatewayResponse& response);

} // namespace wendlow::OnboardingTrigger
