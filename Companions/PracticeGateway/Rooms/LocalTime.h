#pragma once

#include <string>

/// Times of the database as the person's calendar and clock show them.
namespace wendlow::LocalTime {

std::string day(double seconds);    ///< "2026-11-21"
std::string minute(double seconds); ///< "2026-11-21 14:05"
/// How long ago `then` was: "just now", "5 minutes ago", "yesterday", "3 weeks ago".
std::string ago(double then, double now);

} // namespace wendlow::LocalTime
