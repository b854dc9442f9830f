#pragma once

#include <optional>
#include <string>

#include "Described.h"
#include "Records/DayReports.h"
#include "Records/HoursReports.h"

namespace wendlow {

/// Figures of days, spans of days and all time.
namespace AnswerCase {

struct Presence {
    DayPresence _0;
    std::optional<std::string> app = std::nullopt;
    WENDLOW_CASE(Presence, "presence", _0, app);
};

struct SpanHours {
    SpanHoursReport _0;
    WENDLOW_CASE(SpanHours, "spanHours", _0);
};

struct AllTime {
    AllTimeTotals _0;
    WENDLOW_CASE(AllTime, "allTime", _0);
};

struct LongestChapter {
    std::optional<LongestChapterReport> _0 = std::nullopt;
    WENDLOW_CASE(LongestChapter, "longestChapter", _0);
};

struct Stretches {
    DayStretchReport _0;
    WENDLOW_CASE(Stretches, "stretches", _0);
};

struct TopSessions {
    TopSessionsReport _0;
    WENDLOW_CASE(TopSessions, "topSessions", _0);
};

struct Attention {
    AttentionReport _0;
    WENDLOW_CASE(Attention, "attention", _0);
};

struct Web {
    WebReport _0;
    WENDLOW_CASE(Web, "web", _0);
};

} // namespace AnswerCase
} // namespace wendlow
