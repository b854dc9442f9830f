#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

#include <chrono>

/// Dates as a person reads them, in the order and with the names of their locale, in local time.
namespace wendlow::DateWords {

using Date = std::chrono::system_clock::time_point;

/// In the time zone of this machine, to the millisecond below.
QDateTime local(Date date);

/// As short as a column of a table asks for: "Today", "Yesterday", else "Nov 19" in the year of
/// `now` and "Nov 2024" in any other.
QString day(Date date, Date now, const QLocale& locale);

/// With its weekday: "Wednesday, November 18" in the year of `now`, and with the year in any other.
QString weekday(const QDate& day, const QDate& today, const QLocale& locale = {});

/// Day and time, the month abbreviated: "Nov 19, 2026, 2:02 PM".
QString dateAndTime(Date date, const QLocale& locale = {});

/// The same without the year: "Nov 19, 2:02 PM".
QString dayAndTime(Date date, const QLocale& locale = {});

/// The time of day in hours and minutes: "2:02 PM". Some locales' own short format has seconds.
QString time(Date date, const QLocale& locale = {});

/// Nothing left out: "Thursday, November 19, 2026, 2:02 PM".
QString exact(Date date, const QLocale& locale);

} // namespace wendlow::DateWords
