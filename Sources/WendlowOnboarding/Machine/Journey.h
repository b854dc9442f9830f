#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace wendlow {

enum class JourneyScreen {
    welcome,
    screenRecording,
    accessibility,
    microphone,
    recoveryKey,
    plugIn,
    localModels,
    sayHello,
    done,
    warming,
};

/// What the daemon says of the platform's permissions.
struct GrantPair {
    bool screenRecording = false;
    bool accessibility = false;
    bool microphone = false;
    bool microphoneDenied = false;

    bool operator==(const GrantPair&) const = default;
};

/// What is true of the machine at one moment.
struct JourneyWorld {
    bool screenRecording = false; ///< screen and audio recording is granted
    bool accessibility = false;
    bool microphone = false;
    bool aiWired = false; ///< at least one AI tool is connected
    bool storePresent = false;
    bool helloReceived = false;
    bool warm = false; ///< the first-run warm-up of this build has been done
    bool recoveryPassed = false;
    bool termsAgreed = false;

    bool operator==(const JourneyWorld&) const = default;
};

/// Which screen the machine asks for. Pure; any thread.
namespace Journey {

/// Where a person stands who opens the window now. Never `accessibility` and never `localModels`:
/// those are reached by going on.
JourneyScreen derive(const JourneyWorld& world);

/// Where the button of the Welcome screen leads.
JourneyScreen afterSetup(const JourneyWorld& world);

/// One step forward: a permission that is on is passed over, one that is off holds. Never a step
/// back. From `welcome` and `warming` the world alone decides.
JourneyScreen advanced(JourneyScreen from, const JourneyWorld& world);

/// The screen of the platform's permission of this kind, by the daemon's name for it; empty for
/// another screen.
std::string_view grantKind(JourneyScreen screen);

bool isPermission(JourneyScreen screen);
/// Whether the machine is looked at while this screen is shown; the others are left by buttons.
bool isPolled(JourneyScreen screen);
/// Whether the world may move a person on from here by itself.
bool followsWorld(JourneyScreen screen);

/// The neighbours in the order in which a person meets the screens: `warming` stands between
/// `localModels` and `sayHello`, and is passed over. `done` has no way back.
std::optional<JourneyScreen> previous(JourneyScreen screen);
std::optional<JourneyScreen> next(JourneyScreen screen);
/// Whether a person has met `screen` by the time they meet `other`, or it is the same.
bool isAtMost(JourneyScreen screen, JourneyScreen other);

} // namespace Journey

/// A screen's short name, as in "recovery".
std::string_view text(JourneyScreen screen);
/// The screen of a short name, in any case of letters.
std::optional<JourneyScreen> journeyScreenNamed(std::string_view name);

/// The rail: the screens in six steps.
enum class JourneyStep { welcome, permissions, recoveryKey, plugIn, localModels, sayHello };
enum class JourneyMark { done, current, todo };

namespace JourneySteps {

inline constexpr JourneyStep all[] = {JourneyStep::welcome,     JourneyStep::permissions,
                                      JourneyStep::recoveryKey, JourneyStep::plugIn,
                                      JourneyStep::localModels, JourneyStep::sayHello};

/// Nothing on `done`, which lies behind all of them.
std::optional<JourneyStep> of(JourneyScreen screen);
JourneyMark mark(JourneyStep step, JourneyScreen on);
/// The screen that a step begins with.
JourneyScreen first(JourneyStep step);

} // namespace JourneySteps

/// The three dots above the permission screens: recording, accessibility, microphone.
namespace PermissionStepper {

struct LineSpan {
    double x = 0;
    double width = 0;

    bool operator==(const LineSpan&) const = default;
};

/// Measures of a row of dots, each in the middle of its column.
struct Row {
    int count = 0;
    double column = 0; ///< width
    double circle = 0; ///< width
    double gap = 0;    ///< between a circle and its line
};

/// Nothing on other screens. Grants that are not known are not granted.
std::optional<std::vector<JourneyMark>> marks(JourneyScreen on,
                                              const std::optional<GrantPair>& grants);

/// The lines between the circles; fewer than two columns have none.
std::vector<LineSpan> lineSpans(const Row& row);

} // namespace PermissionStepper
} // namespace wendlow
