#pragma once

#include "TranslationContext.h"

#include <string>
#include <string_view>

/// All that the journey says. Text between double asterisks is bold; what has several lines is one
/// text with line breaks.
namespace wendlow::JourneyWords {

/// A text in the language of the person. Said whenever it is read: the English cannot be had
/// without.
class Text {
public:
    constexpr Text() = default; ///< empty
    constexpr explicit Text(const char* english) : m_english(english) {}

    /// Lasts as long as the program. Any thread.
    std::string_view said() const;

private:
    const char* m_english = "";
};

namespace Rail {
inline constexpr Text welcome{sayLater("Welcome")};
inline constexpr Text permissions{sayLater("Permissions")};
inline constexpr Text recoveryKey{sayLater("Recovery key")};
inline constexpr Text plugIn{sayLater("Plug in your AIs")};
inline constexpr Text localModels{sayLater("Local models")};
inline constexpr Text sayHello{sayLater("Say hello")};
} // namespace Rail

namespace Stepper {
inline constexpr Text screenRecording{sayLater("Screen and system audio")};
inline constexpr Text accessibility{sayLater("Accessibility")};
inline constexpr Text microphone{sayLater("Microphone")};
} // namespace Stepper

namespace Welcome {
inline constexpr Text title{sayLater("Wendlow.")};
inline constexpr Text para1{sayLater(
    "Wendlow gives your AIs a shared memory of your work. It remembers what you do on your Mac and "
    "gives each AI the context it needs. Every correction makes them smarter.")};
inline constexpr Text para2{sayLater(
    "No account, no email, no credit card, no subscription, no telemetry. Local and encrypted. "
    "Easy to remove in one click.")};
inline constexpr Text button{sayLater("Setup Wendlow")};
inline constexpr Text termsTick{sayLater("I agree to the terms.")};
/// Of the tick, as it stands in it: what leads to the terms.
inline constexpr Text termsWord{sayLater("terms")};
inline constexpr Text updatesTick{sayLater("Automatically install updates.")};
} // namespace Welcome

namespace Permission {
inline constexpr Text granted{sayLater("✓ Permission granted")};
inline constexpr Text next{sayLater("Next")};
inline constexpr Text awaiting{sayLater("Waiting for permission state to change.")};
} // namespace Permission

namespace RecoveryKey {
inline constexpr Text title{sayLater("Write these twelve words down.")};
inline constexpr Text para1{sayLater(
    "Wendlow encrypts your memory on this Mac. These twelve words are the key. They are the only "
    "way to open your memory again if this Mac is replaced, wiped, or its keychain is lost.")};
inline constexpr Text para2{
    sayLater("Write them on paper and keep them somewhere safe. Wendlow cannot "
             "recover them for you, and nobody else has a copy.")};
inline constexpr Text hint{
    sayLater("You can see these words again any time in Settings › Recovery.")};
inline constexpr Text tick{sayLater("I have written these twelve words down.")};
inline constexpr Text next{sayLater("Next")};
} // namespace RecoveryKey

namespace ScreenRecording {
inline constexpr Text title{sayLater("Screen & Audio Recording")};
inline constexpr Text para1{sayLater(
    "Wendlow records your work, your AI's work, and your meetings, and it's very good at it. We "
    "need the screen/audio permission to do that.")};
inline constexpr Text para2{
    sayLater("Recordings are local and encrypted. You can pause any time from the menu bar.")};
inline constexpr Text customizeHint{
    sayLater("You can deeply customize what gets recorded (or not) in "
             "settings after setup is complete.")};
inline constexpr Text hint{sayLater(
    "**What happens next?**\nmacOS asks for permission. In its dialog click **Open System "
    "Settings**, find **Wendlow** on the list, switch it on, and macOS will ask to quit and reopen "
    "the app.")};
inline constexpr Text button{sayLater("Ask for Screen Recording")};
} // namespace ScreenRecording

namespace Accessibility {
inline constexpr Text doneLine{sayLater("✓ Screen & Audio Recording is on. One to go.")};
inline constexpr Text title{sayLater("Accessibility")};
inline constexpr Text body{sayLater(
    "Reading your windows' layout tells Wendlow which app, which document and which call you are "
    "in, so memories land in the right place.")};
inline constexpr Text hint{sayLater(
    "**Important Note**\nmacOS words the permission as 'control your computer'. Wendlow never "
    "controls anything: it reads, and nothing more. No clicks, no typing, ever. No restart this "
    "time.")};
inline constexpr Text button{sayLater("Ask for Accessibility")};
} // namespace Accessibility

namespace Microphone {
inline constexpr Text title{sayLater("Microphone")};
inline constexpr Text body{sayLater(
    "When Wendlow is transcribing meetings it needs to capture your side of the meeting. For that "
    "we need a simple microphone permission. Everything stays on this Mac.")};
inline constexpr Text button{sayLater("Allow microphone")};
inline constexpr Text granted{sayLater("✓ Microphone granted")};
inline constexpr Text refused{
    sayLater("Microphone was refused. Open System Settings › Privacy & Security "
             "› Microphone and switch Wendlow on.")};
} // namespace Microphone

namespace PlugIn {
inline constexpr Text doneLine{sayLater("✓ Both permissions are in. Wendlow is remembering.")};
inline constexpr Text title{sayLater("Upgrade Your AIs with Wendlow")};
inline constexpr Text body{sayLater(
    "The following AIs can be upgraded, select one or more to link them. Also note, you may unlink "
    "any time from the settings menu with a single click.")};
inline constexpr Text continueButton{sayLater("Next")};
inline constexpr Text selectAll{sayLater("select all")};
inline constexpr Text unselectAll{sayLater("unselect all")};
} // namespace PlugIn

namespace LocalModels {
inline constexpr Text title{sayLater("Local models")};
inline constexpr Text body{sayLater(
    "Wendlow names your moments, chapters and meetings with small models that run on this Mac. "
    "Nothing leaves it. They are downloading now, and you can keep setting up while they finish in "
    "the background.")};
inline constexpr Text rowRuntime{sayLater("Ollama runtime")};
inline constexpr Text rowNaming{sayLater("Naming model")};
inline constexpr Text rowTranscription{sayLater("Transcription model")};
inline constexpr Text rowDone{sayLater("Done")};
inline constexpr Text rowWaiting{sayLater("Waiting")};
inline constexpr Text rowPresent{sayLater("already on this Mac")};
inline constexpr Text continueButton{sayLater("Continue")};
inline constexpr Text cancelButton{sayLater("Cancel install")};
inline constexpr Text confirmTitle{sayLater("Cancel the install?")};
inline constexpr Text confirmBody{sayLater(
    "Wendlow stops the download, unplugs the AIs it plugged in, removes what it installed, and "
    "quits. Nothing the Mac already had is touched.")};
inline constexpr Text confirmDeletes{sayLater("Wendlow will remove:")};
inline constexpr Text confirmKeeps{sayLater("And keeps:")};
inline constexpr Text confirmNothing{
    sayLater("Nothing has been installed yet, so nothing is deleted.")};
inline constexpr Text confirmProceed{sayLater("Cancel install")};
inline constexpr Text confirmKeep{sayLater("Keep going")};
inline constexpr Text cancelFailedTitle{sayLater("Could not stop the download")};
inline constexpr Text cancelFailedBody{
    sayLater("Quit Wendlow from the menu bar to stop it. What was "
             "installed so far has been removed.")};
inline constexpr Text cancelFailedButton{sayLater("OK")};

/// The state alone where there is no size.
std::string rowState(Text state, std::string_view size);
std::string rowProgress(std::string_view done, std::string_view total);
std::string rowProgressSoFar(std::string_view done);
std::string totalLine(std::string_view done, std::string_view total);
std::string estimate(std::string_view clock, int minutes);

enum class Behind { notSworn, nothing };
/// An application whose size is not known is small.
std::string hint(std::string_view app, std::string_view total, Behind behind);
} // namespace LocalModels

namespace SayHello {
inline constexpr Text eyebrow{sayLater("Last step")};
inline constexpr Text doneLine{sayLater("✓ Plugged in. Your AIs now share one memory.")};
inline constexpr Text title{sayLater("To complete setup do these 2 things:")};
inline constexpr Text stepOne{sayLater("Restart your Claude (or other AI)")};
inline constexpr Text stepOneSub{sayLater("Quit it and open it again, so it picks up Wendlow.")};
inline constexpr Text stepTwo{sayLater("Type \"hello\" in your Claude (or other AI)")};
inline constexpr Text stepTwoSub{sayLater("Wendlow answers and finishes setup in the chat.")};
inline constexpr Text bothLine{sayLater("⚠️ Setup requires both of those steps.")};
inline constexpr Text hint{sayLater(
    "**What happens next?**\nFrom here Wendlow lives in your menu bar: pause it, open Settings, or "
    "check what it remembers.\n\nNote: You can use CMD+Drag to change Wendlow's position in the "
    "menu bar.")};
inline constexpr Text waitingButton{sayLater("Your move")};
inline constexpr Text listeningLine{sayLater("listening for your AI")};
inline constexpr Text closeButton{sayLater("Close setup")};
inline constexpr Text receivedLine{sayLater("hello received")};
} // namespace SayHello

namespace Warming {
inline constexpr Text line{sayLater("One moment, getting the assistant ready…")};
} // namespace Warming

namespace Done {
inline constexpr Text eyebrow{sayLater("Done")};
inline constexpr Text title{sayLater("Wendlow is installed.")};
inline constexpr Text body{sayLater("Thanks for trying out Wendlow.")};
inline constexpr Text quitButton{sayLater("Quit setup")};
} // namespace Done

/// What stands beside the given words, in the house's own.
namespace Beside {
inline constexpr Text back{sayLater("Back")};
inline constexpr Text forward{sayLater("Forward")};
inline constexpr Text noReading{sayLater("Waiting for word from the download.")};
inline constexpr Text cancelling{sayLater("Stopping and undoing…")};
inline constexpr Text phraseSilent{
    sayLater("Wendlow did not answer in time, so the words cannot be shown "
             "here. You can see them in Settings › Recovery.")};
} // namespace Beside

/// A hint in its two parts: the bold beginning without its asterisks, and what follows.
struct Hint {
    std::string title;
    std::string text;
    bool operator==(const Hint&) const = default;
};
Hint split(std::string_view hint);

/// Of a sentence, the word in it that is a link. All of it where the word is not in it: a
/// translation may have bent the one and not the other, and there has to be a way to the page.
std::string_view linkIn(std::string_view sentence, std::string_view word);

/// Without asterisks, and in the tags that a label with styled text knows.
std::string plain(std::string_view marked);
std::string styled(std::string_view marked);

} // namespace wendlow::JourneyWords
