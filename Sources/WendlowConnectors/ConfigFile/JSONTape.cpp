#include "ConfigFile/JSONTape.h"

#include "ConfigFile/JSONBytes.h"
#include "ConfigFile/JSONEscape.h"

#include <algorithm>
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
    // The first guess suits a file of long texts; growth by half keeps the unused part small.
    const auto capacity =
        std::max(m_capacity + m_capacity / 2, std::max<std::size_t>(64, m_bytes.size() / 64));
    // NOLINTNEXTLINE(bugprone-suspicious-realloc-usage): the old block is released on success only
    auto* words = static_cast<Word*>(std::realloc(m_words.get(), capacity * sizeof(Word)));
    if (words == nullptr) {
        throw std::bad_alloc();
    }
    static_cast<void>(m_words.release());
    m_words.reset(words);
    m_capacity = capacity;
}

std::size_t JSONTape::end(std::size_t index) const {
    switch (tag(index)) {
    case Tag::object:
    case Tag::array:
        return start(endInside(index)) + 1;
    case Tag::string:
    case Tag::escapedString:
        return stringEnd(m_bytes, start(index));
    case Tag::number:
        return std::min(m_bytes.find_first_not_of("+-.0123456789Ee", start(index)), m_bytes.size());
    case Tag::falseLiteral:
        return start(index) + 5;
    case Tag::trueLiteral:
    case Tag::null:
        return start(index) + 4;
    case Tag::close:
        break;
    }
    return start(index) + 1;
}

std::string_view JSONTape::text(std::size_t index) const {
    const auto first = start(index) + 1;
    const auto body = m_bytes.substr(first, end(index) - 1 - first);
    if (tag(index) == Tag::string) {
        return body;
    }
    const std::lock_guard lock(m_decodedMutex);
    auto& text = m_decoded[index];
    if (text.empty()) {
        text = JSONText::decoded(body);
    }
    return text;
}

} // namespace wendlow
