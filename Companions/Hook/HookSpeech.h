#pragma once

#include <cstdint>
#include <expected>
#include <functional>
#include <string>
#include <vector>

#include "GatewayRequest.h"
#include "GatewayResponse.h"
#include "HookCall.h"
#include "HookEvent.h"

namespace wendlow {

/// What the gateway said, or the sentence why it said nothing.
using HookAnswer = std::expected<GatewayResponse, std::string>;

/// Asks all of them at once; an answer for each, in their order.
using HookAsk = std::function<std::vector<HookAnswer>(const std::vector<GatewayRequest>&)>;

/// What is said to a tool at one event.
struct HookSpeech {
    enum class Counting : std::uint8_t {
        counts, ///< the session has been told what it gets, and is not told it again
        looks,  ///< for whoever only wants to see it
    };
    struct Block {
        std::string_view tag;
        std::string text;
        std::string why; ///< what was asked, and what came back
    };

    std::string scope; ///< empty where no answer told it
    std::vector<Block> blocks;
    std::vector<std::string> faults; ///< sentences, each once

    /// Asks what the slot needs.
    static HookSpeech gather(HookSlot slot, const HookHarness& harness, const HookEvent& event,
                             Counting counting, const HookAsk& ask);

    /// All blocks, cut to what the tool takes. Rules come first; where room is short they give way
    /// to what the prompt asks about, but for more than half.
    std::string text(const HookHarness& harness) const;
};

/// The answer on standard output; empty where there is nothing to say.
namespace HookEnvelope {

std::string context(const HookHarness& harness, std::string_view text);
/// The call's arguments with the session in them, for a call of one of our own tools in a session
/// that the tool names. Whether the call may be made is left to the person.
std::string arguments(const HookHarness& harness, const HookEvent& event);

} // namespace HookEnvelope
} // namespace wendlow
