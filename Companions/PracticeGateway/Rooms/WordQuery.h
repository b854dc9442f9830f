#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// From what a person typed to what the full-text index is asked. Nothing typed can be mistaken for
/// the index's own syntax. Without a word there is nothing to ask.
namespace wendlow::WordQuery {

/// The words to look for. A single ASCII letter or digit is none.
std::vector<std::string> words(std::string_view typed);

/// All words, the last one as the beginning of a word, since it may still be being typed.
std::optional<std::string> allOf(std::string_view typed);
/// Any of the words of at least four letters.
std::optional<std::string> anyOf(std::string_view typed);
/// The words one behind the other, the last one as the beginning of a word.
std::optional<std::string> phrase(std::string_view typed);

/// What stands around the first of `words` that is in `text`, on one line; nothing when none is.
std::optional<std::string> passage(std::string_view text, const std::vector<std::string>& words);

} // namespace wendlow::WordQuery
