#pragma once

#include <chrono>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "WireContract.h"

namespace wendlow {

/// How the reply to one message may differ from a good one, so that a client's ways out can be
/// tried. By default it does not.
struct ReplyManner {
    enum class Way {
        reply,
        silent, ///< the call is taken and never replied to
        refuse, ///< an error in place of the reply
        die,    ///< the process kills itself
    };
    enum class Payload {
        answer,       ///< what the gateway answers
        absent,       ///< a reply without the key
        empty,        ///< no bytes
        wrongTypes,   ///< a text where bytes are due, and another kind of number
        noDictionary, ///< a text in place of the whole message
        rubbish,      ///< bytes that are no JSON
        unknownCase,  ///< JSON of a case that the contract does not have
        nested,       ///< lists within lists, 10,000 deep
        cut,          ///< the answer without its last byte
        huge,         ///< a good answer of 20 MB
    };

    Way way = Way::reply;
    Payload payload = Payload::answer;
    std::optional<std::uint64_t> wire = WireContract::version; ///< absent: the reply carries none
    std::chrono::milliseconds delay{0};

    bool operator==(const ReplyManner&) const = default;

    /// Reads words joined by "+": "answer", "silent", "refuse", "die", "no-payload", "empty",
    /// "wrong-types", "no-dictionary", "rubbish", "unknown-case", "nested", "cut", "huge",
    /// "no-wire", "wire-2" with any number, "late-300" with any number of milliseconds. The unknown
    /// word is the error.
    static std::expected<ReplyManner, std::string> parse(std::string_view words);
    /// The same for a list with commas.
    static std::expected<std::vector<ReplyManner>, std::string> parseList(std::string_view words);

    /// Bytes to send in place of the good `answer`.
    std::string payloadFor(std::string answer) const;
};

/// What a gateway does otherwise than a good one.
struct Misbehaviour {
    /// For the first request, the second and so on; the last is for all that follow.
    std::vector<ReplyManner> replies = {{}};
    ReplyManner knockReply;
    std::uint64_t flood = 0; ///< events for each new subscriber, after three that are none
};

} // namespace wendlow
