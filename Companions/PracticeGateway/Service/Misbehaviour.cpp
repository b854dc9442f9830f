#include "Service/Misbehaviour.h"

#include <algorithm>
#include <array>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

using Payload = Misbehaviour::Payload;

constexpr std::array<std::pair<std::string_view, Payload>, 8> payloads{{
    {"answer", Payload::answer},
    {"absent", Payload::absent},
    {"empty", Payload::empty},
    {"rubbish", Payload::rubbish},
    {"unknown-case", Payload::unknownCase},
    {"nested", Payload::nested},
    {"cut", Payload::cut},
    {"huge", Payload::huge},
}};

constexpr std::size_t depth = 10'000;
constexpr std::size_t hugeSize = 20'000'000;

} // namespace

std::optional<Payload> Misbehaviour::payloadNamed(std::string_view word) {
    const auto* const known =
        std::ranges::find(payloads, word, &std::pair<std::string_view, Payload>::first);
    if (known == payloads.end())
        return std::nullopt;
    return known->second;
}

std::optional<std::string> Misbehaviour::replyTo(std::string answer) const {
    switch (payload) {
    case Payload::answer:
        break;
    case Payload::absent:
        return std::nullopt;
    case Payload::empty:
        return std::string();
    case Payload::rubbish:
        return std::string("\x00\xffthis is no JSON", 17);
    case Payload::unknownCase:
        return R"({"horoscope":{"_0":"a quiet day"}})";
    case Payload::nested:
        // In a place where a reader looks no closer, so that only its depth can be the fault.
        return fmt::format(R"({{"ok":{{"further":{}{}}}}})", std::string(depth, '['),
                           std::string(depth, ']'));
    case Payload::cut:
        answer.pop_back();
        break;
    case Payload::huge:
        return fmt::format(R"({{"text":{{"_0":"{}"}}}})", std::string(hugeSize, 'm'));
    }
    return answer;
}

} // namespace wendlow
