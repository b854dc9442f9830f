#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace wendlow {

/// What of the memory is told at one event, as the tools' files name it.
enum class HookSlot : std::uint8_t {
    prompt, ///< rules, index and recall at once; also where no slot is named
    rules,
    index,
    recall,
    pretool, ///< the session goes along with a call of our own tools
};

/// How a tool takes an answer, and how much of one.
struct HookHarness {
    enum class Shape : std::uint8_t { claudeCode, cursor, openCode };

    std::string_view name; ///< as the command line has it; the writer in what is asked
    Shape shape = Shape::claudeCode;
    std::size_t most = 0;     ///< of a slot's text
    bool countsBytes = false; ///< `most` is of bytes, else of UTF-16 units

    /// None for a name that is none of ours.
    static const HookHarness* find(std::string_view name);
};

/// `wendlow-hook --harness NAME [--slot NAME]`, or `--explain [WORDS…]` beside them.
struct HookCall {
    const HookHarness* harness = nullptr;
    HookSlot slot = HookSlot::prompt;
    bool explains = false;
    std::string words; ///< a prompt to explain, of the words that are no flag

    /// Nothing for a harness, a slot or a flag that is not known. Flags also take their value
    /// after `=`.
    static std::optional<HookCall> parse(std::span<const char* const> words);
};

} // namespace wendlow
