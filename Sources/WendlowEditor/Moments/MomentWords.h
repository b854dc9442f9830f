#pragma once

#include "Model/EditorAnswer.h"

#include <QDate>
#include <QString>

#include <cstdint>
#include <optional>

/// What the page of the moments says of them.
namespace wendlow::MomentWords {

/// Of the newest day.
QString heading(const QDate& newest, const QDate& today);
/// Of any other, as it stands above its moments.
QString day(const QDate& day, const QDate& today);
/// How many there are; empty where that is not known.
QString subheading(std::optional<std::int64_t> count);
/// In place of moments; empty where there are some.
QString empty(const EditorAnswerState& state, std::optional<std::int64_t> count);

} // namespace wendlow::MomentWords
