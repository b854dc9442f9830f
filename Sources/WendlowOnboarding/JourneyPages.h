#pragma once

#include "Journey.h"

#include <string_view>
#include <vector>

namespace wendlow {

/// The words of a screen that are always the same; what it does not have is empty.
struct JourneyPage {
    // NOLINTBEGIN(readability-redundant-member-init): they may be left out of a list
    std::string_view eyebrow = {};
    std::string_view doneLine = {};
    std::string_view title = {};
    std::vector<std::string_view> paragraphs = {};
    std::string_view hint = {};          ///< with asterisks where it is bold
    std::string_view customizeHint = {}; ///< small, below the paragraphs
    std::string_view ask = {};           ///< the button that asks for a permission
    std::string_view granted = {};       ///< in its place once it is there
    std::string_view primary = {};       ///< the button at the foot

    // NOLINTEND(readability-redundant-member-init)

    static const JourneyPage& of(JourneyScreen screen);
};

} // namespace wendlow
