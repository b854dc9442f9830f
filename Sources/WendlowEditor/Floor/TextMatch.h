#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// A piece of a text, for drawing.
struct MatchSegment {
    std::string text;
    bool matched = false;

    bool operator==(const MatchSegment&) const = default;
};

/// Finds the words of a search in a text for showing them. Case and accents make no difference;
/// words of one letter are not looked for. What a person sees as one character is never cut.
/// Counts in such characters.
namespace TextMatch {

/// A line around the first place where a word stands, the words tried in the order of the term;
/// "…" where it is cut. Nothing: no word stands there.
std::optional<std::string> passage(std::string_view term, std::string_view text, int radius);

/// The whole text in pieces, found and between. One piece where nothing is found; none for an
/// empty text.
std::vector<MatchSegment> segments(std::string_view text, std::string_view term);

/// Whether the whole `term` stands in `text`, whatever its case.
bool contains(std::string_view text, std::string_view term);

} // namespace TextMatch
} // namespace wendlow
