#include "ConfigFile/JSONTape.h"

#include "ConfigFile/JSONBytes.h"
#include "ConfigFile/JSONEscape.h"

#include <new>

namespace wendlow {

namespace {

/// Past the closing quote of the string whose opening quote is at `start`.
std::size_t stringEnd(std::string_view bytes, std::size_t start) {
    const char* const end = bytes.data() + bytes.size();
    const char* at = bytes.data() + start + 1;
    while (*(at = JSONBytes::plainRunEnd(at, end)) != '"') {
        at += *at == '\\' ? 2 : 1;
    }
    return static_cast<std::size_t>(at + 1 - bytes.data());
}

} // namespace

void JSONTape::grow() {
    // The first guess is room for all that a small file can be thought to hold. In a large one it
    // suits long texts, and growth by half keeps the unused part small.
    constexpr std::size_t smallFile = std::size_t{256} * 1024;
    const std::size_t guess = m_bytes.size() / (m_bytes.size() <= smallFile ? 8 : 64);
    const auto capacity = std::max(m_capacity + m_capacity / 2, std::max<std::size_t>(64, guess));
    // NOLINTNEXTLINE(bugprone-suspicious-realloc-usage): the old block is released on success only
    auto* words = static_cast<Word*>(std::realloc(m_words.get(), capacity * sizeof(Word)));
    if (words == nullptr) {
        throw std::bad_alloc();
    }
    static_cast<void>(m_words.release());
    m_words.reset(words);
    m_capacity = capacity;
}

/// Where a string or a number ends whose length is not in its word.
std::size_t JSONTape::readEnd(std::size_t index) const {
    if (tag(index) == Tag::number)
        return std::min(m_bytes.find_first_not_of("+-.0123456789Ee", start(index)), m_bytes.size());
    return stringEnd(m_bytes, start(index));
}

std::string_view JSONTape::decoded(std::size_t index, std::string_view body) const {
    const std::lock_guard lock(m_decodedMutex);
    auto& text = m_decoded[index];
    if (text.empty()) {
        text = JSONText::decoded(body);
    }
    return text;
}

} // namespace wendlow
