#include "HookCall.h"

#include <algorithm>
#include <array>
#include <utility>

namespace wendlow {

namespace {

using Shape = HookHarness::Shape;

// Claude Code hands on some 10,000 characters whole. Codex is told 7500 in its own file and does
// not say of what, so it gets no more bytes.
constexpr std::array<HookHarness, 4> harnesses{{
    {.name = "claude-code", .shape = Shape::claudeCode, .most = 9000},
    {.name = "codex", .shape = Shape::claudeCode, .most = 7400, .countsBytes = true},
    {.name = "cursor", .shape = Shape::cursor, .most = 9000},
    {.name = "opencode", .shape = Shape::openCode, .most = 9000},
}};

constexpr std::array<std::pair<std::string_view, HookSlot>, 5> slots{{
    {"prompt", HookSlot::prompt},
    {"rules", HookSlot::rules},
    {"index", HookSlot::index},
    {"recall", HookSlot::recall},
    {"pretool", HookSlot::pretool},
}};

/// The value of a flag, from behind its `=` or from the next word.
std::optional<std::string_view> valueOf(std::string_view flag, std::span<const char* const>& rest) {
    const std::string_view word = rest.front();
    if (word.starts_with(flag) && word.substr(flag.size()).starts_with('=')) {
        rest = rest.subspan(1);
        return word.substr(flag.size() + 1);
    }
    if (word != flag)
        return std::nullopt;
    rest = rest.subspan(1);
    if (rest.empty())
        return "";
    const std::string_view value = rest.front();
    rest = rest.subspan(1);
    return value;
}

} // namespace

const HookHarness* HookHarness::find(std::string_view name) {
    const auto* const found = std::ranges::find(harnesses, name, &HookHarness::name);
    return found == harnesses.end() ? nullptr : found;
}

std::optional<HookCall> HookCall::parse(std::span<const char* const> words) {
    HookCall call;
    while (!words.empty()) {
        if (const auto harness = valueOf("--harness", words)) {
            call.harness = HookHarness::find(*harness);
            if (call.harness == nullptr)
                return std::nullopt;
        } else if (const auto slot = valueOf("--slot", words)) {
            const auto* const found =
                std::ranges::find(slots, *slot, &std::pair<std::string_view, HookSlot>::first);
            if (found == slots.end())
                return std::nullopt;
            call.slot = found->second;
        } else {
            const std::string_view word = words.front();
            words = words.subspan(1);
            if (word == "--explain")
                call.explains = true;
            else if (word.starts_with("--"))
                return std::nullopt;
            else
                call.words += (call.words.empty() ? "" : " ") + std::string(word);
        }
    }
    if (call.explains && call.harness == nullptr)
        call.harness = &harnesses.front();
    return call.harness == nullptr ? std::nullopt : std::optional(std::move(call));
}

} // namespace wendlow
