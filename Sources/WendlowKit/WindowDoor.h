#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "ClientInstance.h"

/// The protocol by which a sibling process asks for a window: a launch argument starts the
/// application with it, a distributed notification reaches an application that runs already.
/// Pure; any thread.
namespace wendlow::WindowDoor {

enum class Pane { settings, stats, editor, onboarding };
enum class Front { leave, bring };
enum class JourneyDoorAction { build, refresh, front, nothing };
using UserInfo = std::map<std::string, std::string>;

inline constexpr std::string_view notification = ClientInstance::openWindowNotification;
inline constexpr std::string_view frontKey = "front";
/// Beside a request for Settings: the pane to turn to, by its id.
inline constexpr std::string_view settingsPaneKey = "pane";

/// The pane's raw string, which is the case's name.
std::string_view text(Pane pane);

/// The pane of exactly this raw string.
std::optional<Pane> pane(std::string_view raw);

/// The launch argument: "--window=" and the raw string.
std::string argument(Pane pane);

/// The pane of the first well-formed window argument; malformed ones are skipped.
std::optional<Pane> requested(std::span<const std::string> arguments);

/// What goes with a request: nothing, or "front" to "1".
std::optional<UserInfo> userInfo(Front front);
bool wantsFront(const std::optional<UserInfo>& userInfo);
/// The id of a pane of Settings, where the request names one; it may be no pane's.
std::optional<std::string> settingsPane(const std::optional<UserInfo>& userInfo);

/// What a request finds: whether the journey has a window, whether that window is on screen or
/// minimized, and whether the request asks for the front.
struct JourneyDoorState {
    bool exists = false;
    bool live = false;
    bool front = false;
};

/// A request without `front` never takes the focus from a journey that is on screen.
JourneyDoorAction journeyDoor(JourneyDoorState state);

} // namespace wendlow::WindowDoor
