#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Times of the database as the person's calendar and clock show them.
namespace wendlow::LocalTime {

std::string day(double seconds);    ///< "2026-11-21"
std::string minute(double seconds); ///< "2026-11-21 14:05"
std::string clock(double seconds);  ///< "14:05"
/// A length of time in whole minutes: "42m", "3h", "3h 7m".
std::string length(double seconds);
/// The first second of a day that is written as above; nothing for what is no day.
std::optional<double> startOf(std::string_view day);
/// 0 is Sunday.
int weekday(double seconds);
/// How long ago `then` was: "just now", "5 minutes ago", "yesterday", "3 weeks ago".
std::string ago(double then, double now);

} // namespace wendlow::LocalTime
