#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "Fill/Content.h"

/// The words of which `Content` makes its things.
namespace wendlow::Vocabulary {

/// A type of memory: how many of a thousand are of it, and how such a memory reads.
struct MemoryType {
    std::string_view name;
    std::uint64_t perThousand = 0;
    std::vector<std::string_view> titles;
};

/// A rule as it is filed; without a module it rides every prompt.
struct StandingRule {
    std::string_view scope;
    std::string_view module;
    std::string_view text;
    std::string_view why;
};

std::span<const Project> projects();
/// What may fill the slot of this name.
std::span<const std::string_view> words(std::string_view slot);
std::span<const std::string_view> sentences();
std::span<const MemoryType> memoryTypes();
std::span<const StandingRule> standingRules();
/// By a module's tag, the sentence that makes a tool read it.
std::span<const std::pair<std::string_view, std::string_view>> moduleSentences();
/// Texts that are hard to show: scripts from right to left, pictures, many lines, no blanks.
std::span<const std::string_view> awkwardTexts();

} // namespace wendlow::Vocabulary
