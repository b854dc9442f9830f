#include "JourneyPages.h"

namespace wendlow {

namespace {

namespace Words = JourneyWords;

JourneyPage made(JourneyScreen screen) {
    switch (screen) {
    case JourneyScreen::welcome:
        return {.title = Words::Welcome::title,
                .paragraphs = {Words::Welcome::para1, Words::Welcome::para2},
                .primary = Words::Welcome::button};
    case JourneyScreen::screenRecording:
        return {.title = Words::ScreenRecording::title,
                .paragraphs = {Words::ScreenRecording::para1, Words::ScreenRecording::para2},
                .hint = Words::ScreenRecording::hint,
                .customizeHint = Words::ScreenRecording::customizeHint,
                .ask = Words::ScreenRecording::button,
                .granted = Words::Permission::granted,
                .primary = Words::Permission::next};
    case JourneyScreen::accessibility:
        return {.doneLine = Words::Accessibility::doneLine,
                .title = Words::Accessibility::title,
                .paragraphs = {Words::Accessibility::body},
                .hint = Words::Accessibility::hint,
                .ask = Words::Accessibility::button,
                .granted = Words::Permission::granted,
                .primary = Words::Permission::next};
    case JourneyScreen::microphone:
        return {.title = Words::Microphone::title,
                .paragraphs = {Words::Microphone::body},
                .ask = Words::Microphone::button,
                .granted = Words::Microphone::granted,
                .primary = Words::Permission::next};
    case JourneyScreen::recoveryKey:
        return {.title = Words::RecoveryKey::title,
                .paragraphs = {Words::RecoveryKey::para1, Words::RecoveryKey::para2},
                .primary = Words::RecoveryKey::next};
    case JourneyScreen::plugIn:
        return {.doneLine = Words::PlugIn::doneLine,
                .title = Words::PlugIn::title,
                .paragraphs = {Words::PlugIn::body},
                .primary = Words::PlugIn::continueButton};
    case JourneyScreen::localModels:
        // Its hint tells sizes.
        return {.title = Words::LocalModels::title,
                .paragraphs = {Words::LocalModels::body},
                .primary = Words::LocalModels::continueButton};
    case JourneyScreen::sayHello:
        return {.eyebrow = Words::SayHello::eyebrow,
                .doneLine = Words::SayHello::doneLine,
                .title = Words::SayHello::title,
                .hint = Words::SayHello::hint,
                .primary = Words::SayHello::waitingButton};
    case JourneyScreen::warming:
        return {.paragraphs = {Words::Warming::line}};
    case JourneyScreen::done:
        break;
    }
    return {.eyebrow = Words::Done::eyebrow,
            .title = Words::Done::title,
            .paragraphs = {Words::Done::body},
            .primary = Words::Done::quitButton};
}

} // namespace

const JourneyPage& JourneyPage::of(JourneyScreen screen) {
    static const std::vector<JourneyPage> pages = [] {
        std::vector<JourneyPage> all;
        constexpr int count = static_cast<int>(JourneyScreen::warming) + 1;
        all.reserve(count);
        for (int each = 0; each < count; ++each)
            all.push_back(made(static_cast<JourneyScreen>(each)));
        return all;
    }();
    return pages[static_cast<std::size_t>(screen)];
}

} // namespace wendlow
