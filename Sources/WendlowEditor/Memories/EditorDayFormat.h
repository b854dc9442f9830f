#pragma once

#include "Model/EditorDate.h"

#include <QString>

/// The day of a row, in local time.
namespace wendlow::EditorDayFormat {

/// "Nov 19", and in any other year than that of `now` "Nov 19, 2024": the same order everywhere,
/// with the month's name in the default locale.
QString shortDay(EditorDate date, EditorDate now);

} // namespace wendlow::EditorDayFormat
