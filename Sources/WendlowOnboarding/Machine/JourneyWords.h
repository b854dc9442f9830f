#pragma once

#include <string>
#include <string_view>

/// All that the journey says. Text between double asterisks is bold; what has several lines is one
/// text with line breaks.
namespace wendlow::JourneyWords {

using Text = std::string_view;

inline constexpr Text windowTitle = "Welcome to Wendlow";

namespace Rail {
inline constexpr Text welcome = "Welcome";
inline constexpr Text permissions = "Permissions";
inline constexpr Text recoveryKey = "Recovery key";
inline constexpr Text plugIn = "Plug in your AIs";
inline constexpr Text localModels = "Local models";
inline constexpr Text sayHello = "Say hello";
} // namespace Rail

namespace Stepper {
inline constexpr Text screenRecording = "Screen and system audio";
inline constexpr Text accessibility = "Accessibility";
inline constexpr Text microphone = "Microphone";
} // namespace Stepper

namespace Welcome {
inline constexpr Text title = "Wendlow.";
inline constexpr Text para1 =
    "Wendlow gives your AIs a shared memory of your work. It remembers what you do on your Mac and "
    "gives each AI the context it needs. Every correction makes them smarter.";
inline constexpr Text para2 =
    "No account, no email, no credit card, no subscription, no telemetry. Local and encrypted. "
    "Easy to remove in one click.";
inline constexpr Text button = "Setup Wendlow";
inline constexpr Text termsTick = "I agree to the terms.";
inline constexpr Text termsWord = "terms"; ///< of the tick, what leads to them
inline constexpr Text updatesTick = "Automatically install updates.";
} // namespace Welcome

namespace Permission {
inline constexpr Text granted = "✓ Permission granted";
inline constexpr Text next = "Next";
inline constexpr Text awaiting = "Waiting for permission state to change.";
} // namespace Permission

namespace RecoveryKey {
inline constexpr Text title = "Write these twelve words down.";
inline constexpr Text para1 =
    "Wendlow encrypts your memory on this Mac. These twelve words are the key. They are the only "
    "way to open your memory again if this Mac is replaced, wiped, or its keychain is lost.";
inline constexpr Text para2 = "Write them on paper and keep them somewhere safe. Wendlow cannot "
                              "recover them for you, and nobody else has a copy.";
inline constexpr Text hint = "You can see these words again any time in Settings › Recovery.";
inline constexpr Text tick = "I have written these twelve words down.";
inline constexpr Text next = "Next";
} // namespace RecoveryKey

namespace ScreenRecording {
inline constexpr Text title = "Screen & Audio Recording";
inline constexpr Text para1 =
    "Wendlow records your work, your AI's work, and your meetings, and it's very good at it. We "
    "need the screen/audio permission to do that.";
inline constexpr Text para2 =
    "Recordings are local and encrypted. You can pause any time from the menu bar.";
inline constexpr Text customizeHint = "You can deeply customize what gets recorded (or not) in "
                                      "settings after setup is complete.";
inline constexpr Text hint =
    "**What happens next?**\nmacOS asks for permission. In its dialog click **Open System "
    "Settings**, find **Wendlow** on the list, switch it on, and macOS will ask to quit and reopen "
    "the app.";
inline constexpr Text button = "Ask for Screen Recording";
} // namespace ScreenRecording

namespace Accessibility {
inline constexpr Text doneLine = "✓ Screen & Audio Recording is on. One to go.";
inline constexpr Text title = "Accessibility";
inline constexpr Text body =
    "Reading your windows' layout tells Wendlow which app, which document and which call you are "
    "in, so memories land in the right place.";
inline constexpr Text hint =
    "**Important Note**\nmacOS words the permission as 'control your computer'. Wendlow never "
    "controls anything: it reads, and nothing more. No clicks, no typing, ever. No restart this "
    "time.";
inline constexpr Text button = "Ask for Accessibility";
} // namespace Accessibility

namespace Microphone {
inline constexpr Text title = "Microphone";
inline constexpr Text body =
    "When Wendlow is transcribing meetings it needs to capture your side of the meeting. For that "
    "we need a simple microphone permission. Everything stays on this Mac.";
inline constexpr Text button = "Allow microphone";
inline constexpr Text granted = "✓ Microphone granted";
inline constexpr Text refused = "Microphone was refused. Open System Settings › Privacy & Security "
                                "› Microphone and switch Wendlow on.";
} // namespace Microphone

namespace PlugIn {
inline constexpr Text doneLine = "✓ Both permissions are in. Wendlow is remembering.";
inline constexpr Text title = "Upgrade Your AIs with Wendlow";
inline constexpr Text body =
    "The following AIs can be upgraded, select one or more to link them. Also note, you may unlink "
    "any time from the settings menu with a single click.";
inline constexpr Text continueButton = "Next";
inline constexpr Text selectAll = "select all";
inline constexpr Text unselectAll = "unselect all";
} // namespace PlugIn

namespace LocalModels {
inline constexpr Text title = "Local models";
inline constexpr Text body =
    "Wendlow names your moments, chapters and meetings with small models that run on this Mac. "
    "Nothing leaves it. They are downloading now, and you can keep setting up while they finish in "
    "the background.";
inline constexpr Text rowRuntime = "Ollama runtime";
inline constexpr Text rowNaming = "Naming model";
inline constexpr Text rowTranscription = "Transcription model";
inline constexpr Text rowDone = "Done";
inline constexpr Text rowWaiting = "Waiting";
inline constexpr Text rowPresent = "already on this Mac";
inline constexpr Text continueButton = "Continue";
inline constexpr Text cancelButton = "Cancel install";
inline constexpr Text confirmTitle = "Cancel the install?";
inline constexpr Text confirmBody =
    "Wendlow stops the download, unplugs the AIs it plugged in, removes what it installed, and "
    "quits. Nothing the Mac already had is touched.";
inline constexpr Text confirmDeletes = "Wendlow will remove:";
inline constexpr Text confirmKeeps = "And keeps:";
inline constexpr Text confirmNothing = "Nothing has been installed yet, so nothing is deleted.";
inline constexpr Text confirmProceed = "Cancel install";
inline constexpr Text confirmKeep = "Keep going";
inline constexpr Text cancelFailedTitle = "Could not stop the download";
inline constexpr Text cancelFailedBody = "Quit Wendlow from the menu bar to stop it. What was "
                                         "installed so far has been removed.";
inline constexpr Text cancelFailedButton = "OK";

/// The state alone where there is no size.
std::string rowState(Text state, Text size);
std::string rowProgress(Text done, Text total);
std::string rowProgressSoFar(Text done);
std::string totalLine(Text done, Text total);
std::string estimate(Text clock, int minutes);

enum class Behind { notSworn, nothing };
std::string hint(Text app, Text total, Behind behind);
} // namespace LocalModels

namespace SayHello {
inline constexpr Text eyebrow = "Last step";
inline constexpr Text doneLine = "✓ Plugged in. Your AIs now share one memory.";
inline constexpr Text title = "To complete setup do these 2 things:";
inline constexpr Text stepOne = "Restart your Claude (or other AI)";
inline constexpr Text stepOneSub = "Quit it and open it again, so it picks up Wendlow.";
inline constexpr Text stepTwo = "Type \"hello\" in your Claude (or other AI)";
inline constexpr Text stepTwoSub = "Wendlow answers and finishes setup in the chat.";
inline constexpr Text bothLine = "⚠️ Setup requires both of those steps.";
inline constexpr Text hint =
    "**What happens next?**\nFrom here Wendlow lives in your menu bar: pause it, open Settings, or "
    "check what it remembers.\n\nNote: You can use CMD+Drag to change Wendlow's position in the "
    "menu bar.";
inline constexpr Text waitingButton = "Your move";
inline constexpr Text listeningLine = "listening for your AI";
inline constexpr Text closeButton = "Close setup";
inline constexpr Text receivedLine = "hello received";
} // namespace SayHello

namespace Warming {
inline constexpr Text line = "One moment, getting the assistant ready…";
} // namespace Warming

namespace Done {
inline constexpr Text eyebrow = "Done";
inline constexpr Text title = "Wendlow is installed.";
inline constexpr Text body = "Thanks for trying out Wendlow.";
inline constexpr Text quitButton = "Quit setup";
} // namespace Done

/// What stands beside the given words, in the house's own.
namespace Beside {
inline constexpr Text back = "Back";
inline constexpr Text forward = "Forward";
inline constexpr Text noReading = "Waiting for word from the download.";
inline constexpr Text cancelling = "Stopping and undoing…";
inline constexpr Text phraseSilent = "Wendlow did not answer in time, so the words cannot be shown "
                                     "here. You can see them in Settings › Recovery.";
} // namespace Beside

/// A hint in its two parts: the bold beginning without its asterisks, and what follows.
struct Hint {
    std::string title;
    std::string text;
    bool operator==(const Hint&) const = default;
};
Hint split(Text hint);

/// Without asterisks, and in the tags that a label with styled text knows.
std::string plain(Text marked);
std::string styled(Text marked);

} // namespace wendlow::JourneyWords
