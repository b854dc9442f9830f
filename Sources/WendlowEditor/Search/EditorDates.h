#pragma once

#include "Model/EditorDate.h"

#include <QString>

namespace wendlow {

/// A day in a row, in the words of the person's locale; its year only where it is not `now`'s.
namespace EditorDayFormat {
QString shortDay(EditorDate date, EditorDate now = std::chrono::system_clock::now());
} // namespace EditorDayFormat

/// Day and time in the person's locale, the month abbreviated.
QString dateAndTime(EditorDate date);

} // namespace wendlow
