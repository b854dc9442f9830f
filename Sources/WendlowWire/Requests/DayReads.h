#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "Described.h"

namespace wendlow {

/// Questions about days, spans of days and all time. Days are "yyyy-MM-dd" in the local calendar of
/// the daemon's user.
namespace ReadCase {

struct GetDay {
    std::string day;
    WENDLOW_REQUEST(GetDay, "getDay", "day_get", day);
};

struct DayCard {
    std::string day;
    WENDLOW_REQUEST(DayCard, "dayCard", "day_get_card", day);
};

struct DayPresence {
    std::string day;
    std::optional<std::string> app = std::nullopt;
    WENDLOW_REQUEST(DayPresence, "dayPresence", "day_get_hours_by_app", day, app);
};

struct SpanHours {
    std::string from;
    std::string to;
    WENDLOW_REQUEST(SpanHours, "spanHours", "span_get_hours_by_app", from, to);
};

struct AllTime {
    bool force = false;
    WENDLOW_REQUEST(AllTime, "allTime", "all_time_get_totals", force);
};

struct DayLongestChapter {
    std::string day;
    WENDLOW_REQUEST(DayLongestChapter, "dayLongestChapter", "day_get_longest_chapter", day);
};

struct DayStretches {
    std::string day;
    WENDLOW_REQUEST(DayStretches, "dayStretches", "day_get_stretches", day);
};

struct DayTopSessions {
    std::string day;
    WENDLOW_REQUEST(DayTopSessions, "dayTopSessions", "day_get_top_sessions", day);
};

struct DayAttention {
    std::string day;
    WENDLOW_REQUEST(DayAttention, "dayAttention", "day_get_attention", day);
};

struct DayWeb {
    std::string day;
    WENDLOW_REQUEST(DayWeb, "dayWeb", "day_get_web", day);
};

struct Tally {
    std::optional<std::string> entity = std::nullopt;
    std::optional<std::string> mode = std::nullopt;
    std::string span;
    WENDLOW_REQUEST(Tally, "tally", "tally", entity, mode, span);
};

struct StorageStats {
    std::optional<std::int64_t> days = std::nullopt;
    WENDLOW_REQUEST(StorageStats, "storageStats", "storage_get_stats", days);
};

struct RecallStats {
    std::optional<std::int64_t> days = std::nullopt;
    WENDLOW_REQUEST(RecallStats, "recallStats", "recall_stats", days);
};

struct Coverage {
    std::optional<std::string> span = std::nullopt;
    WENDLOW_REQUEST(Coverage, "coverage", "coverage", span);
};

} // namespace ReadCase
} // namespace wendlow
