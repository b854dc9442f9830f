#include "LocalTime.h"

#include <cmath>
#include <cstdint>
#include <ctime>

#include <fmt/chrono.h>

namespace wendlow::LocalTime {
namespace {

std::tm calendarOf(double seconds) {
    const auto time = static_cast<std::time_t>(std::floor(seconds));
    std::tm calendar{};
    ::localtime_r(&time, &calendar);
    return calendar;
}

} // namespace

std::string day(double seconds) {
    return fmt::format("{:%Y-%m-%d}", calendarOf(seconds));
}

std::string minute(double seconds) {
    return fmt::format("{:%Y-%m-%d %H:%M}", calendarOf(seconds));
}

std::string clock(double seconds) {
    return fmt::format("{:%H:%M}", calendarOf(seconds));
}

std::string length(double seconds) {
    const auto minutes = static_cast<std::int64_t>(seconds) / 60;
    if (minutes < 60)
        return fmt::format("{}m", minutes);
    return minutes % 60 == 0 ? fmt::format("{}h", minutes / 60)
                             : fmt::format("{}h {}m", minutes / 60, minutes % 60);
}

std::optional<double> startOf(std::string_view day) {
    std::tm calendar{};
    const std::string text(day);
    const char* const end = ::strptime(text.c_str(), "%Y-%m-%d", &calendar);
    if (end != text.c_str() + text.size() || end == nullptr)
        return std::nullopt;
    calendar.tm_isdst = -1;
    const auto seconds = static_cast<double>(std::mktime(&calendar));
    // The calendar would turn February 30 into a day of March, and "2026-1-1" has no zeros.
    return LocalTime::day(seconds) == day ? std::optional(seconds) : std::nullopt;
}

int weekday(double seconds) {
    return calendarOf(seconds).tm_wday;
}

std::string ago(double then, double now) {
    constexpr std::int64_t dayLong = 86400;
    const auto seconds = static_cast<std::int64_t>(now - then);
    const struct {
        std::int64_t seconds;
        std::string_view unit;
    } units[] = {{365 * dayLong, "year"}, {30 * dayLong, "month"}, {7 * dayLong, "week"},
                 {dayLong, "day"},        {3600, "hour"},          {60, "minute"}};
    for (const auto& unit : units) {
        const std::int64_t count = seconds / unit.seconds;
        if (count == 1 && unit.unit == "day")
            return "yesterday";
        if (count >= 1)
            return fmt::format("{} {}{} ago", count, unit.unit, count == 1 ? "" : "s");
    }
    return "just now";
}

} // namespace wendlow::LocalTime
