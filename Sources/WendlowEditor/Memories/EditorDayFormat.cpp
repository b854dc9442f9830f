#include "Memories/EditorDayFormat.h"

#include "DateWords.h"
#include "Say.h"

#include <QLocale>

namespace wendlow {

QString EditorDayFormat::shortDay(EditorDate date, EditorDate now) {
    const QDate day = DateWords::local(date).date();
    const bool thisYear = day.year() == DateWords::local(now).date().year();
    return QLocale().toString(day, thisYear ? say("MMM d") : say("MMM d, yyyy"));
}

} // namespace wendlow
