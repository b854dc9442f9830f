#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wendlow::EditorText {

/// The words that a search goes by: runs of `a` to `z` and digits of the text in lower case. Every
/// other character, a letter with an accent too, ends a word. Bytes that are not UTF-8 do so too.
std::vector<std::string> tokenize(std::string_view text);

/// The same, behind what `tokens` holds.
void tokenize(std::string_view text, std::vector<std::string>& tokens);

} // namespace wendlow::EditorText
