#include "HookPlaces.h"

#include "Drift.h"
#include "HookCommand.h"
#include "Say.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

namespace wendlow {

namespace {

std::string wrongCount(std::size_t held, HookPlaces::Count expected) {
    const auto number = static_cast<std::int64_t>(held);
    return expected == HookPlaces::Count::two
               ? say.plural(number, "this file holds {} Wendlow entry where two are expected",
                            "this file holds {} Wendlow entries where two are expected", number)
               : say.plural(number, "this file holds {} Wendlow entry where four are expected",
                            "this file holds {} Wendlow entries where four are expected", number);
}

} // namespace

std::string_view HookPlaces::eventOf(std::string_view command) const {
    return HookCommand::isPreTool(command) ? preToolEvent : promptEvent;
}

std::vector<std::string> HookPlaces::wrongPlaces(const std::vector<Placed>& sites) const {
    std::vector<std::string> reasons;
    if (sites.size() != std::to_underlying(count))
        reasons.push_back(wrongCount(sites.size(), count));
    for (const auto& [event, command] : sites)
        if (const std::string_view expected = eventOf(command); event != expected)
            reasons.push_back(
                say("a Wendlow entry here is under the {} event rather than {}", event, expected));
    return reasons;
}

std::vector<std::string> HookPlaces::reasons(const std::vector<Placed>& sites) const {
    std::vector<std::string> reasons = wrongPlaces(sites);
    const auto onPrompt = std::ranges::find_if_not(sites, HookCommand::isPreTool, &Placed::command);
    const std::string_view shown =
        onPrompt == sites.end() ? sites.front().command : onPrompt->command;
    std::ranges::move(Drift::reasons(shown,
                                     HookCommand::isPreTool(shown) ? preToolCommand : promptCommand,
                                     binary),
                      std::back_inserter(reasons));
    return reasons;
}

} // namespace wendlow
