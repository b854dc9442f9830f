#pragma once

#include "Journey.h"
#include "JourneyWords.h"

#include <vector>

namespace wendlow {

/// The words of a screen that are always the same; what it does not have is empty.
struct JourneyPage {
    using Text = JourneyWords::Text;

    // NOLINTBEGIN(readability-redundant-member-init): they may be left out of a list
    Text eyebrow = {};
    Text doneLine = {};
    Text title = {};
    std::vector<Text> paragraphs = {};
    Text hint = {};          ///< with asterisks where it is bold
    Text customizeHint = {}; ///< small, below the paragraphs
    Text ask = {};           ///< the button that asks for a permission
    Text granted = {};       ///< in its place once it is there
    Text primary = {};       ///< the button at the foot

    // NOLINTEND(readability-redundant-member-init)

    static const JourneyPage& of(JourneyScreen screen);
};

} // namespace wendlow
