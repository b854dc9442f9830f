#pragma once

#include "Model/EditorAnswer.h"

#include <QString>

namespace wendlow::EditorWords {

/// What stands above a list by the state of its answer.
struct Strip {
    QString words; ///< empty: no strip
    bool warns = false;
};
/// Without what is said of a list that has no rows yet.
Strip strip(const EditorAnswerState& state);

QString reading();
QString nothingHere();
/// A made-up world has none of what a face shows.
QString notWired();
/// In place of rows: that they are being read, that there are none, or nothing where a strip tells
/// why. Empty where there are rows.
QString empty(const EditorAnswer& answer, bool hasRows);

} // namespace wendlow::EditorWords
