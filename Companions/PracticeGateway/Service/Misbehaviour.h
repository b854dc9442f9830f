#pragma once

#include <chrono>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

#include "WireContract.h"

namespace wendlow {

/// How a gateway may differ from a good one, so that a client's ways out can be tried. By default
/// it does not.
struct Misbehaviour {
    enum class Payload {
        answer,      ///< what the gateway answers
        absent,      ///< a reply without the key
        empty,       ///< no bytes
        rubbish,     ///< bytes that are no JSON
        unknownCase, ///< JSON of a case that the contract does not have
        nested,      ///< lists within lists, 10,000 deep
        cut,         ///< the answer without its last byte
        huge,        ///< a good answer of 20 MB
    };

    std::optional<std::uint64_t> wire = WireContract::version; ///< absent: replies carry none
    bool isSilent = false;                                     ///< takes a call and never replies
    std::chrono::milliseconds delay{0};                        ///< before each reply
    std::uint64_t refusals = 0; ///< so many requests get an error first
    Payload payload = Payload::answer;
    std::optional<std::uint64_t> requestsInLife; ///< the process kills itself at the next one
    std::uint64_t flood = 0;                     ///< events for each new subscriber

    static constexpr std::uint64_t all = UINT64_MAX;

    /// The words by which an option names a payload: "answer", "absent", "unknown-case" and so on.
    static std::optional<Payload> payloadNamed(std::string_view word);

    /// The bytes of a reply in place of the good `answer`; nothing where the key is to be absent.
    std::optional<std::string> replyTo(std::string answer) const;
};

} // namespace wendlow
