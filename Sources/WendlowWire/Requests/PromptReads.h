#pragma once

#include <optional>
#include <string>

#include "Described.h"

namespace wendlow {

/// What an AI tool is given at the time of a prompt.
namespace ReadCase {

struct Primed {
    std::string prompt;
    std::optional<std::string> cwd = std::nullopt;
    std::optional<std::string> writer = std::nullopt;
    std::optional<std::string> session = std::nullopt;
    std::optional<std::string> transcript = std::nullopt;
    bool countsPrompt = false;
    WENDLOW_REQUEST(Primed, "primed", "primed", prompt, cwd, writer, session, transcript,
                    countsPrompt);
};

/// `card` asks for the rules card in place of the walk.
struct StandingRules {
    std::optional<std::string> cwd = std::nullopt;
    std::optional<std::string> writer = std::nullopt;
    std::optional<std::string> session = std::nullopt;
    std::optional<std::string> transcript = std::nullopt;
    bool card = false;
    std::optional<std::string> scope = std::nullopt;
    WENDLOW_REQUEST(StandingRules, "standingRules", "rules_get", cwd, writer, session, transcript,
                    card, scope);
};

} // namespace ReadCase
} // namespace wendlow
