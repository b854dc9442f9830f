#pragma once

#include "Checks.h"
#include "ConfigFile/JSONText.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What fuzz programs over JSON ask in common.
namespace wendlow::fuzz {

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
