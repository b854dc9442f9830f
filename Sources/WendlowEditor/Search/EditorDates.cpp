#include "Search/EditorDates.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>

namespace wendlow {

namespace {

QDateTime local(EditorDate date) {
    return QDateTime::fromMSecsSinceEpoch(
        std::chrono::floor<std::chrono::milliseconds>(date).time_since_epoch().count());
}

/// The locale's long date, without the day of the week and with a short month.
QString abbreviatedDatePattern(const QLocale& locale) {
    static const QRegularExpression weekday(QStringLiteral("dddd[^dMy']*|[^dMy']*dddd"));
    QString pattern = locale.dateFormat(QLocale::LongFormat);
    pattern.replace(weekday, QString());
    return pattern.replace(QStringLiteral("MMMM"), QStringLiteral("MMM"));
}

} // namespace

QString EditorDayFormat::shortDay(EditorDate date, EditorDate now) {
    const QDate day = local(date).date();
    const bool thisYear = day.year() == local(now).date().year();
    return QLocale().toString(day,
                              thisYear ? QStringLiteral("MMM d") : QStringLiteral("MMM d, yyyy"));
}

QString dateAndTime(EditorDate date) {
    const QLocale locale;
    const QDateTime when = local(date);
    return locale.toString(when.date(), abbreviatedDatePattern(locale)) + QStringLiteral(", ") +
           locale.toString(when.time(), QLocale::ShortFormat);
}

} // namespace wendlow
