#include "Ranking/EditorText.h"

namespace wendlow::EditorText {

namespace {

/// The lower case of a byte that is in a word; NUL where it is in none.
constexpr char wordByte(char byte) {
    if (byte >= 'A' && byte <= 'Z')
        return static_cast<char>(byte - 'A' + 'a');
    return (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') ? byte : '\0';
}

} // namespace

void tokenize(std::string_view text, std::vector<std::string>& tokens) {
    // The only two characters outside ASCII whose lower case begins inside it. That of the second
    // goes on with a combining dot, which ends the word.
    constexpr std::string_view kelvin = "\u212A";
    constexpr std::string_view dottedI = "\u0130";
    std::string word;
    const auto end = [&] {
        if (!word.empty())
            tokens.push_back(std::move(word));
        word.clear();
    };
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (const char byte = wordByte(text[at])) {
            word.push_back(byte);
        } else if (text.substr(at).starts_with(kelvin)) {
            word.push_back('k');
            at += kelvin.size() - 1;
        } else {
            if (text.substr(at).starts_with(dottedI))
                word.push_back('i');
            end();
        }
    }
    end();
}

std::vector<std::string> tokenize(std::string_view text) {
    std::vector<std::string> tokens;
    tokenize(text, tokens);
    return tokens;
}

} // namespace wendlow::EditorText
