#include "DaySpan.h"

#include <fmt/format.h>

#include "LocalTime.h"

namespace wendlow {

std::expected<DaySpan, std::string> DaySpan::read(const std::optional<std::string>& first,
                                                  const std::optional<std::string>& last) {
    // From midnight into the next day's noon or so, however long the clocks made the day.
    constexpr double wellIntoTheNext = 36.0 * 3600;
    DaySpan span;
    for (const auto& day : {first, last})
        if (day && !LocalTime::startOf(*day))
            return std::unexpected(
                fmt::format("“{}” is not a day; a day is written as 2026-11-21", *day));
    if (first)
        span.from = *LocalTime::startOf(*first);
    if (last)
        span.to = LocalTime::startOf(LocalTime::day(*LocalTime::startOf(*last) + wellIntoTheNext))
                      .value_or(span.to);
    if (span.from >= span.to)
        return std::unexpected(fmt::format("{} comes after {}", *first, *last));
    return span;
}

} // namespace wendlow
