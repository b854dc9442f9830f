#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Described.h"

namespace wendlow {

struct LongestChapterReport {
    std::string title;
    std::int64_t spanSeconds = 0;
    WENDLOW_RECORD(LongestChapterReport, title, spanSeconds);
};

/// A day's runs of focus and its longest sitting. Times are seconds since 1970.
struct DayStretchReport {
    struct AppSlice {
        std::string app;
        std::int64_t seconds = 0;
        WENDLOW_RECORD(AppSlice, app, seconds);
    };

    struct FocusRun {
        double start = 0;
        double end = 0;
        std::int64_t seconds = 0;
        std::vector<AppSlice> apps;
        WENDLOW_RECORD(FocusRun, start, end, seconds, apps);
    };

    struct Sitting {
        std::int64_t seconds = 0;
        double startedAt = 0;
        double endedAt = 0;
        std::vector<AppSlice> apps;
        WENDLOW_RECORD(Sitting, seconds, startedAt, endedAt, apps);
    };

    std::string day;
    std::vector<FocusRun> focus;
    std::int64_t runCount = 0;
    std::optional<Sitting> sitting = std::nullopt;
    WENDLOW_RECORD(DayStretchReport, day, focus, runCount, sitting);
};

struct TopSessionsReport {
    struct Session {
        std::string title;
        std::int64_t seconds = 0;
        std::string chapterId;
        WENDLOW_RECORD(Session, title, seconds, chapterId);
    };

    std::string day;
    std::vector<Session> sessions;
    WENDLOW_RECORD(TopSessionsReport, day, sessions);
};

/// What a day went to.
struct AttentionReport {
    std::string day;
    std::int64_t aiSeconds = 0;
    std::int64_t humansSeconds = 0;
    std::int64_t scrollingSeconds = 0;
    std::int64_t scrollingGlances = 0;
    WENDLOW_RECORD(AttentionReport, day, aiSeconds, humansSeconds, scrollingSeconds,
                   scrollingGlances);
};

struct WebReport {
    struct Site {
        std::string domain;
        std::int64_t seconds = 0;
        WENDLOW_RECORD(Site, domain, seconds);
    };

    std::string day;
    std::int64_t browserSeconds = 0;
    std::vector<Site> sites;
    WENDLOW_RECORD(WebReport, day, browserSeconds, sites);
};

} // namespace wendlow
