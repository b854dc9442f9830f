#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Described.h"
#include "Records/PrimedAnswer.h"
#include "Records/RulesWalk.h"
#include "Records/SessionOffer.h"

namespace wendlow {

/// What an AI tool is given at the time of a prompt.
namespace AnswerCase {

struct Primed {
    std::vector<PrimeCard> _0;
    bool distilled = false;
    std::optional<ShortcutInjection> shortcut = std::nullopt;
    std::optional<MeetingJustEnded> justEnded = std::nullopt;
    WENDLOW_CASE(Primed, "primed", _0, distilled, shortcut, justEnded);
};

struct StandingWalk {
    std::optional<RulesWalk> _0 = std::nullopt;
    WENDLOW_CASE(StandingWalk, "standingWalk", _0);
};

struct RulesCard {
    std::string scope;
    std::optional<bool> announce = std::nullopt;
    std::string card;
    std::optional<std::string> note = std::nullopt;
    std::optional<std::string> onboarding = std::nullopt;
    std::optional<std::string> pointer = std::nullopt;
    WENDLOW_CASE(RulesCard, "rulesCard", scope, announce, card, note, onboarding, pointer);
};

struct Sessions {
    std::optional<SessionOffer> _0 = std::nullopt;
    WENDLOW_CASE(Sessions, "sessions", _0);
};

} // namespace AnswerCase
} // namespace wendlow
