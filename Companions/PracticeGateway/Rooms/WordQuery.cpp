#include "WordQuery.h"

#include <algorithm>
#include <ranges>
#include <utility>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "DocumentCard.h"
#include "PlainText.h"

namespace wendlow::WordQuery {
namespace {

/// The blocks of signs, punctuation and pictures that the index's tokenizer takes for gaps: a word
/// made of nothing else would match nothing at all.
constexpr std::pair<char32_t, char32_t> gaps[] = {
    {0x80, 0xA9},     {0xAB, 0xB1},     {0xB4, 0xB4},     {0xB6, 0xB8},      {0xBB, 0xBB},
    {0xBF, 0xBF},     {0xD7, 0xD7},     {0xF7, 0xF7},     {0x2000, 0x206F},  {0x20A0, 0x20CF},
    {0x2190, 0x245F}, {0x2500, 0x2BFF}, {0x3000, 0x3004}, {0x3008, 0x3020},  {0xFE00, 0xFE0F},
    {0xFF00, 0xFF0F}, {0xFF1A, 0xFF20}, {0xFFF0, 0xFFFF}, {0x1F000, 0x1FAFF}};

bool isGap(char32_t character) {
    if (character < 0x80)
        return !((character >= '0' && character <= '9') || (character >= 'a' && character <= 'z') ||
                 (character >= 'A' && character <= 'Z'));
    return std::ranges::any_of(
        gaps, [&](const auto& gap) { return character >= gap.first && character <= gap.second; });
}

/// One character off the front, with its bytes. What is no UTF-8 counts byte by byte.
std::pair<char32_t, std::string_view> next(std::string_view text) {
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t length = first < 0xC0 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (length == 1 || length > text.size())
        return {first, text.substr(0, 1)};
    char32_t character = first & (0x7FU >> length);
    for (const char byte : text.substr(1, length - 1))
        character = character << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
    return {character, text.substr(0, length)};
}

std::string quoted(std::string_view word) {
    return fmt::format("\"{}\"", word);
}

bool sameLetter(char left, char right) {
    const auto folded = [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    };
    return folded(left) == folded(right);
}

} // namespace

std::vector<std::string> words(std::string_view typed) {
    std::vector<std::string> words(1);
    while (!typed.empty()) {
        const auto [character, bytes] = next(typed);
        typed.remove_prefix(bytes.size());
        if (!isGap(character))
            words.back() += bytes;
        else if (!words.back().empty())
            words.emplace_back();
    }
    std::erase_if(words, [](const std::string& word) { return word.size() < 2; });
    return words;
}

std::optional<std::string> allOf(std::string_view typed) {
    const auto found = words(typed);
    if (found.empty())
        return std::nullopt;
    return fmt::format("{}*", fmt::join(found | std::views::transform(quoted), " "));
}

std::optional<std::string> anyOf(std::string_view typed) {
    constexpr std::size_t telling = 4;
    auto found = words(typed);
    std::erase_if(found, [](const std::string& word) { return word.size() < telling; });
    if (found.empty())
        return std::nullopt;
    return fmt::format("{}", fmt::join(found | std::views::transform(quoted), " OR "));
}

std::optional<std::string> phrase(std::string_view typed) {
    const auto found = words(typed);
    if (found.empty())
        return std::nullopt;
    return fmt::format("\"{}\"*", fmt::join(found, " "));
}

std::optional<std::string> passage(std::string_view text, const std::vector<std::string>& words) {
    constexpr std::ptrdiff_t radius = 80;
    for (const std::string& word : words) {
        const auto found = std::ranges::search(text, word, sameLetter);
        if (found.empty())
            continue;
        auto from =
            std::max(text.begin(), found.begin() - std::min(radius, found.begin() - text.begin()));
        auto to = found.end() + std::min(radius, text.end() - found.end());
        const auto within = [](char byte) {
            return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
        };
        while (from != text.begin() && within(*from))
            --from;
        while (to != text.end() && within(*to))
            ++to;
        std::string slice(PlainText::trimmed({from, to}));
        std::ranges::replace(slice, '\n', ' ');
        return fmt::format("{}{}{}", from == text.begin() ? "" : "…", slice,
                           to == text.end() ? "" : "…");
    }
    return std::nullopt;
}

} // namespace wendlow::WordQuery
