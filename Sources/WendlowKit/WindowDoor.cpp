#include "WindowDoor.h"

#include <array>

#include <fmt/format.h>

namespace wendlow::WindowDoor {

namespace {

constexpr std::string_view flag = "--window=";
constexpr std::array panes = {Pane::settings, Pane::stats, Pane::editor, Pane::onboarding};

std::optional<std::string> value(const std::optional<UserInfo>& userInfo, std::string_view key) {
    if (!userInfo)
        return std::nullopt;
    const auto found = userInfo->find(std::string(key));
    return found == userInfo->end() ? std::nullopt : std::optional(found->second);
}

} // namespace

std::string_view text(Pane pane) {
    switch (pane) {
    case Pane::settings:
        return "settings";
    case Pane::stats:
        return "stats";
    case Pane::editor:
        return "editor";
    case Pane::onboarding:
        return "onboarding";
    }
    return {};
}

std::optional<Pane> pane(std::string_view raw) {
    for (const Pane candidate : panes)
        if (text(candidate) == raw)
            return candidate;
    return std::nullopt;
}

std::string argument(Pane pane) {
    return fmt::format("{}{}", flag, text(pane));
}

std::optional<Pane> requested(std::span<const std::string> arguments) {
    for (const std::string_view argument : arguments) {
        if (!argument.starts_with(flag))
            continue;
        if (const auto found = pane(argument.substr(flag.size())))
            return found;
    }
    return std::nullopt;
}

std::optional<UserInfo> userInfo(Front front) {
    if (front == Front::leave)
        return std::nullopt;
    return UserInfo{{std::string(frontKey), "1"}};
}

bool wantsFront(const std::optional<UserInfo>& userInfo) {
    return value(userInfo, frontKey) == "1";
}

std::optional<std::string> settingsPane(const std::optional<UserInfo>& userInfo) {
    return value(userInfo, settingsPaneKey);
}

JourneyDoorAction journeyDoor(JourneyDoorState state) {
    if (!state.exists)
        return JourneyDoorAction::build;
    if (!state.live)
        return JourneyDoorAction::refresh;
    return state.front ? JourneyDoorAction::front : JourneyDoorAction::nothing;
}

} // namespace wendlow::WindowDoor
