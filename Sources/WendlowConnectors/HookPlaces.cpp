#include "HookPlaces.h"

#include "Drift.h"
#include "HookCommand.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

namespace wendlow {

std::string_view HookPlaces::eventOf(std::string_view command) const {
    return HookCommand::isPreTool(command) ? preToolEvent : promptEvent;
}

std::vector<std::string> HookPlaces::wrongPlaces(const std::vector<Placed>& sites) const {
    std::vector<std::string> reasons;
    if (sites.size() != count)
        reasons.push_back(fmt::format("this file holds {} Wendlow {} where {} are expected",
                                      sites.size(), sites.size() == 1 ? "entry" : "entries",
                                      countName));
    for (const auto& [event, command] : sites)
        if (const std::string_view expected = eventOf(command); event != expected)
            reasons.push_back(fmt::format(
                "a Wendlow entry here is under the {} event rather than {}", event, expected));
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
