#include "Journey.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>

namespace wendlow {

namespace {

constexpr std::array<std::pair<std::string_view, JourneyScreen>, 10> names{{
    {"welcome", JourneyScreen::welcome},
    {"screenrec", JourneyScreen::screenRecording},
    {"accessibility", JourneyScreen::accessibility},
    {"mic", JourneyScreen::microphone},
    {"recovery", JourneyScreen::recoveryKey},
    {"ais", JourneyScreen::plugIn},
    {"models", JourneyScreen::localModels},
    {"hello", JourneyScreen::sayHello},
    {"warming", JourneyScreen::warming},
    {"done", JourneyScreen::done},
}};

/// As a person meets them. `warming` comes and goes by itself.
constexpr std::array path{JourneyScreen::welcome,       JourneyScreen::screenRecording,
                          JourneyScreen::accessibility, JourneyScreen::microphone,
                          JourneyScreen::recoveryKey,   JourneyScreen::plugIn,
                          JourneyScreen::localModels,   JourneyScreen::warming,
                          JourneyScreen::sayHello,      JourneyScreen::done};

std::size_t placeOf(JourneyScreen screen) {
    return static_cast<std::size_t>(std::ranges::find(path, screen) - path.begin());
}

/// Where a person stands who has come past the permissions and the recovery key.
JourneyScreen behindRecovery(const JourneyWorld& world) {
    if (!world.aiWired)
        return JourneyScreen::plugIn;
    if (world.storePresent && world.helloReceived)
        return JourneyScreen::done;
    return world.warm ? JourneyScreen::sayHello : JourneyScreen::warming;
}

} // namespace

namespace Journey {

JourneyScreen derive(const JourneyWorld& world) {
    if (!world.termsAgreed)
        return JourneyScreen::welcome;
    if (!world.screenRecording) {
        // Who has done anything beyond agreeing is not welcomed a second time.
        return world.accessibility || world.aiWired ? JourneyScreen::screenRecording
                                                    : JourneyScreen::welcome;
    }
    // The screen before it shows its done state and leads on.
    if (!world.accessibility)
        return JourneyScreen::screenRecording;
    if (!world.microphone)
        return JourneyScreen::microphone;
    return world.recoveryPassed ? behindRecovery(world) : JourneyScreen::recoveryKey;
}

JourneyScreen afterSetup(const JourneyWorld& world) {
    if (!world.termsAgreed || !world.screenRecording || !world.accessibility)
        return JourneyScreen::screenRecording;
    if (!world.microphone)
        return JourneyScreen::microphone;
    return world.recoveryPassed ? behindRecovery(world) : JourneyScreen::recoveryKey;
}

JourneyScreen advanced(JourneyScreen from, const JourneyWorld& world) {
    if (followsWorld(from))
        return derive(world);
    if (!isPermission(from))
        return from;
    if (from == JourneyScreen::screenRecording && !world.screenRecording)
        return from;
    if (!world.accessibility)
        return from == JourneyScreen::microphone ? from : JourneyScreen::accessibility;
    if (!world.microphone)
        return JourneyScreen::microphone;
    return world.recoveryPassed ? JourneyScreen::plugIn : JourneyScreen::recoveryKey;
}

std::string_view grantKind(JourneyScreen screen) {
    switch (screen) {
    case JourneyScreen::screenRecording:
        return "screen_recording";
    case JourneyScreen::accessibility:
        return "accessibility";
    case JourneyScreen::microphone:
        return "microphone";
    default:
        return {};
    }
}

bool isPermission(JourneyScreen screen) {
    return !grantKind(screen).empty();
}

bool isPolled(JourneyScreen screen) {
    return screen != JourneyScreen::recoveryKey && screen != JourneyScreen::plugIn &&
           screen != JourneyScreen::done;
}

bool followsWorld(JourneyScreen screen) {
    return screen == JourneyScreen::welcome || screen == JourneyScreen::warming;
}

std::optional<JourneyScreen> previous(JourneyScreen screen) {
    std::size_t place = placeOf(screen);
    if (place == 0 || screen == JourneyScreen::done)
        return std::nullopt;
    --place;
    return path[path[place] == JourneyScreen::warming ? place - 1 : place];
}

std::optional<JourneyScreen> next(JourneyScreen screen) {
    std::size_t place = placeOf(screen) + 1;
    if (place == path.size())
        return std::nullopt;
    return path[path[place] == JourneyScreen::warming ? place + 1 : place];
}

bool isAtMost(JourneyScreen screen, JourneyScreen other) {
    return placeOf(screen) <= placeOf(other);
}

} // namespace Journey

std::string_view text(JourneyScreen screen) {
    return std::ranges::find(names, screen, &decltype(names)::value_type::second)->first;
}

std::optional<JourneyScreen> journeyScreenNamed(std::string_view name) {
    std::string lower(name);
    std::ranges::transform(lower, lower.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    const auto found = std::ranges::find(names, lower, &decltype(names)::value_type::first);
    return found == names.end() ? std::nullopt : std::optional(found->second);
}

namespace JourneySteps {

std::optional<JourneyStep> of(JourneyScreen screen) {
    switch (screen) {
    case JourneyScreen::welcome:
        return JourneyStep::welcome;
    case JourneyScreen::screenRecording:
    case JourneyScreen::accessibility:
    case JourneyScreen::microphone:
        return JourneyStep::permissions;
    case JourneyScreen::recoveryKey:
        return JourneyStep::recoveryKey;
    case JourneyScreen::plugIn:
        return JourneyStep::plugIn;
    case JourneyScreen::localModels:
        return JourneyStep::localModels;
    case JourneyScreen::sayHello:
    case JourneyScreen::warming:
        return JourneyStep::sayHello;
    case JourneyScreen::done:
        break;
    }
    return std::nullopt;
}

JourneyMark mark(JourneyStep step, JourneyScreen on) {
    const auto current = of(on);
    if (!current || step < *current)
        return JourneyMark::done;
    return step == *current ? JourneyMark::current : JourneyMark::todo;
}

JourneyScreen first(JourneyStep step) {
    return *std::ranges::find_if(path, [step](JourneyScreen screen) {
        return of(screen) == step && screen != JourneyScreen::warming;
    });
}

} // namespace JourneySteps

namespace PermissionStepper {

std::optional<std::vector<JourneyMark>> marks(JourneyScreen on,
                                              const std::optional<GrantPair>& grants) {
    if (!Journey::isPermission(on))
        return std::nullopt;
    const GrantPair known = grants.value_or(GrantPair());
    const auto of = [&](JourneyScreen screen, bool granted) {
        if (screen == on)
            return JourneyMark::current;
        const bool behind = Journey::isAtMost(screen, on);
        return behind && granted ? JourneyMark::done : JourneyMark::todo;
    };
    return std::vector{of(JourneyScreen::screenRecording, known.screenRecording),
                       of(JourneyScreen::accessibility, known.accessibility),
                       of(JourneyScreen::microphone, known.microphone)};
}

std::vector<LineSpan> lineSpans(const Row& row) {
    std::vector<LineSpan> spans;
    for (int i = 1; i < row.count; ++i) {
        const double x = row.column * (i - 0.5) + row.circle / 2 + row.gap;
        const double end = row.column * (i + 0.5) - row.circle / 2 - row.gap;
        spans.push_back({.x = x, .width = end - x});
    }
    return spans;
}

} // namespace PermissionStepper
} // namespace wendlow
