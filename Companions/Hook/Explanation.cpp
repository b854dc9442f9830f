#include "Explanation.h"

#include <optional>
#include <system_error>

#include <filesystem>
#include <fmt/format.h>

#include "ClientInstance.h"
#include "HookLog.h"
#include "HookSpeech.h"
#include "HookText.h"
#include "StandardInput.h"

namespace wendlow::Explanation {

namespace {

constexpr std::string_view usage =
    "usage: wendlow-hook --explain [--harness NAME] [--slot NAME] PROMPT\n"
    "       or with an event of the tool, as JSON, on standard input\n";

std::optional<HookEvent> eventOf(const HookCall& call, GatewayDoor::Clock::time_point deadline) {
    if (call.words.empty()) {
        const auto input = StandardInput::read(deadline);
        return input ? HookEvent::read(*input) : std::nullopt;
    }
    HookEvent event;
    event.prompt = call.words;
    std::error_code error;
    if (const auto folder = std::filesystem::current_path(error); !error)
        event.cwd = folder.string();
    return event;
}

} // namespace

std::string of(const HookCall& call, GatewayDoor::Clock::time_point deadline) {
    const auto event = eventOf(call, deadline);
    if (!event)
        return std::string(usage);
    GatewayDoor door(std::string(ClientInstance::gatewayID), deadline);
    const HookSpeech speech =
        HookSpeech::gather(call.slot, *call.harness, *event, HookSpeech::Counting::looks,
                           [&](const auto& questions) { return door.ask(questions); });
    std::string text = fmt::format(
        "To {}, in {}, {}:\n", call.harness->name, event->cwd.value_or("no folder"),
        event->session ? "in the session " + *event->session : std::string("in no session"));
    for (const HookSpeech::Block& block : speech.blocks)
        text += fmt::format("\n{}: {} of at most {} {}; {}.\n{}", block.tag,
                            HookText::size(block.text, *call.harness), call.harness->most,
                            call.harness->countsBytes ? "bytes" : "characters", block.why,
                            block.text.empty() ? "(nothing)\n" : block.text);
    const std::string said = HookEnvelope::context(*call.harness, speech.text(*call.harness));
    text += said.empty() ? std::string("\nNothing is said to the tool.\n")
                         : fmt::format("\nSaid to the tool:\n{}\n", said);
    for (const std::string& fault : speech.faults)
        text += fmt::format("\nFault: {}. It is noted in {} when a tool asks.\n", fault,
                            HookLog::path());
    return text;
}

} // namespace wendlow::Explanation
