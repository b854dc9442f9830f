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
