#pragma once

#include <optional>
#include <string>
#include <utility>

#include "RawString.h"

namespace wendlow {

/// A case of an enum of the contract, or the word of one that a newer daemon knows and this build
/// does not. For lists that a person is to see whole: one unknown word would cost the whole answer.
template<StringVariant T> class OpenCase {
public:
    OpenCase() : OpenCase(T{}) {}
    OpenCase(T known) : m_word(rawString(known)) {}

    static OpenCase ofWord(std::string word) {
        OpenCase made;
        made.m_word = std::move(word);
        return made;
    }

    /// As it is written on the wire.
    const std::string& word() const { return m_word; }
    /// Nothing for a word that this build does not know.
    std::optional<T> known() const { return fromRawString<T>(m_word); }

    bool operator==(const OpenCase&) const = default;

private:
    std::string m_word;
};

} // namespace wendlow
