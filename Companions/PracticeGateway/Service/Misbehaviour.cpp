#include "Service/Misbehaviour.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

using Way = ReplyManner::Way;
using Payload = ReplyManner::Payload;

constexpr std::array<std::pair<std::string_view, Way>, 4> ways{{
    {"answer", Way::reply},
    {"silent", Way::silent},
    {"refuse", Way::refuse},
    {"die", Way::die},
}};

constexpr std::array<std::pair<std::string_view, Payload>, 9> payloads{{
    {"no-payload", Payload::absent},
    {"empty", Payload::empty},
    {"wrong-types", Payload::wrongTypes},
    {"no-dictionary", Payload::noDictionary},
    {"rubbish", Payload::rubbish},
    {"unknown-case", Payload::unknownCase},
    {"nested", Payload::nested},
    {"cut", Payload::cut},
    {"huge", Payload::huge},
}};

constexpr std::size_t depth = 10'000;
constexpr std::size_t hugeSize = 20'000'000;

template<class Value, std::size_t count>
std::optional<Value> named(const std::array<std::pair<std::string_view, Value>, count>& table,
                           std::string_view word) {
    for (const auto& [name, value] : table)
        if (name == word)
            return value;
    return std::nullopt;
}

/// The number behind a word's beginning: 300 for "late-300" after "late-".
std::optional<std::uint64_t> numberAfter(std::string_view beginning, std::string_view word) {
    if (!word.starts_with(beginning))
        return std::nullopt;
    word.remove_prefix(beginning.size());
    std::uint64_t value = 0;
    const auto [stopped, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc() || stopped != word.data() + word.size())
        return std::nullopt;
    return value;
}

bool take(std::string_view word, ReplyManner& manner) {
    if (const auto way = named(ways, word)) {
        manner.way = *way;
    } else if (const auto payload = named(payloads, word)) {
        manner.payload = *payload;
    } else if (const auto wire = numberAfter("wire-", word)) {
        manner.wire = wire;
    } else if (const auto delay = numberAfter("late-", word); delay && *delay <= INT32_MAX) {
        manner.delay = std::chrono::milliseconds(*delay);
    } else if (word == "no-wire") {
        manner.wire.reset();
    } else {
        return false;
    }
    return true;
}

/// What stands before the next separator, which is taken off with it.
std::string_view next(std::string_view& rest, char separator) {
    const std::size_t end = std::min(rest.find(separator), rest.size());
    const std::string_view word = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return word;
}

} // namespace

std::expected<ReplyManner, std::string> ReplyManner::parse(std::string_view words) {
    ReplyManner manner;
    do {
        const std::string_view word = next(words, '+');
        if (!take(word, manner))
            return std::unexpected(std::string(word));
    } while (!words.empty());
    return manner;
}

std::expected<std::vector<ReplyManner>, std::string>
ReplyManner::parseList(std::string_view words) {
    std::vector<ReplyManner> list;
    do {
        auto manner = parse(next(words, ','));
        if (!manner)
            return std::unexpected(manner.error());
        list.push_back(*manner);
    } while (!words.empty());
    return list;
}

std::string ReplyManner::payloadFor(std::string answer) const {
    switch (payload) {
    case Payload::answer:
    case Payload::wrongTypes:
    case Payload::noDictionary:
        break;
    case Payload::absent:
    case Payload::empty:
        return {};
    case Payload::rubbish:
        return {"\x00\xffthis is no JSON", 17};
    case Payload::unknownCase:
        return R"({"horoscope":{"_0":"a quiet day"}})";
    case Payload::nested:
        // Where a reader looks no closer, so that nothing but the depth is the fault.
        return fmt::format(R"({{"ok":{{"further":{}{}}}}})", std::string(depth, '['),
                           std::string(depth, ']'));
    case Payload::cut:
        answer.pop_back();
        break;
    case Payload::huge:
        return fmt::format(R"({{"text":{{"_0":"{}"}}}})", std::string(hugeSize, 'x'));
    }
    return answer;
}

} // namespace wendlow
