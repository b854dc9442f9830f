#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Described.h"

namespace wendlow {

/// A day by application. Whole figures are seconds.
struct DayPresence {
    /// `start` and `end` are seconds since 1970.
    struct Interval {
        double start = 0;
        double end = 0;
        std::string kind;
        WENDLOW_RECORD(Interval, start, end, kind);
    };

    struct App {
        std::string app;
        std::int64_t attended = 0;
        std::int64_t unattended = 0;
        std::int64_t active = 0;
        bool isBrowser = false;
        std::vector<Interval> intervals;
        WENDLOW_RECORD(App, app, attended, unattended, active, isBrowser, intervals);
    };

    std::string day;
    std::vector<App> apps;
    std::int64_t active = 0;
    WENDLOW_RECORD(DayPresence, day, apps, active);
};

/// A span of days by application and by day. Whole figures are seconds.
struct SpanHoursReport {
    struct App {
        std::string app;
        std::int64_t attended = 0;
        std::int64_t unattended = 0;
        std::int64_t active = 0;
        WENDLOW_RECORD(App, app, attended, unattended, active);
    };

    struct Day {
        std::string day;
        std::int64_t attended = 0;
        std::int64_t unattended = 0;
        WENDLOW_RECORD(Day, day, attended, unattended);
    };

    std::string from;
    std::string to;
    std::int64_t attended = 0;
    std::int64_t unattended = 0;
    std::int64_t active = 0;
    std::vector<App> apps;
    std::vector<Day> days;
    WENDLOW_RECORD(SpanHoursReport, from, to, attended, unattended, active, apps, days);
};

/// Everything there ever was. The `cpu` figures are the daemon's own, where it has them.
struct AllTimeTotals {
    std::int64_t moments = 0;
    std::int64_t meetings = 0;
    std::int64_t days = 0;
    std::int64_t yourWorkSeconds = 0;
    std::int64_t aiWorkSeconds = 0;
    std::int64_t storageBytes = 0;
    std::optional<std::int64_t> cpuMs = std::nullopt;
    std::optional<std::int64_t> cpuWallMs = std::nullopt;
    WENDLOW_RECORD(AllTimeTotals, moments, meetings, days, yourWorkSeconds, aiWorkSeconds,
                   storageBytes, cpuMs, cpuWallMs);
};

} // namespace wendlow
