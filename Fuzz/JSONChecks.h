#pragma once

#include "ConfigFile/JSONText.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// What fuzz programs over JSON ask in common.
namespace wendlow::fuzz {

/// Stops the program, so that libFuzzer keeps the input, unless `holds`.
inline void require(bool holds, std::string_view what, std::string_view bytes = {}) {
    if (!holds) {
        std::fprintf(stderr, "broken: %.*s\n%.*s\n", static_cast<int>(what.size()), what.data(),
                     static_cast<int>(bytes.size()), bytes.data());
        std::abort();
    }
}

/// The input in a block of exactly its size: a read outside of it is seen.
class ExactBytes {
public:
    ExactBytes(const std::uint8_t* data, std::size_t size)
        : m_size(size), m_bytes(std::make_unique_for_overwrite<char[]>(size)) {
        if (size > 0) {
            std::memcpy(m_bytes.get(), data, size);
        }
    }
    explicit ExactBytes(std::string_view bytes)
        : ExactBytes(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()) {}
    std::string_view view() const { return {m_bytes.get(), m_size}; }

private:
    std::size_t m_size;
    std::unique_ptr<char[]> m_bytes;
};

/// Scans what has to be JSON.
inline JSONDocument scanned(std::string_view bytes, JSONDialect dialect, std::string_view what) {
    auto document = JSONText::scanWithTrivia(bytes, dialect);
    require(document.has_value(), what, bytes);
    return std::move(*document);
}

/// The comments' texts. Blanks at a line comment's end are not what a person would miss.
inline std::vector<std::string> commentTexts(const JSONDocument& document, std::string_view bytes) {
    std::vector<std::string> texts;
    for (const auto& range : document.comments()) {
        auto& text = texts.emplace_back(bytes.substr(range.lower, range.size()));
        while (JSONText::isWhitespace(text.back())) {
            text.pop_back();
        }
    }
    return texts;
}

} // namespace wendlow::fuzz
