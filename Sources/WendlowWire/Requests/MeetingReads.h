#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "Described.h"

namespace wendlow {

/// Questions about meetings.
namespace ReadCase {

struct MeetingGet {
    std::string id;
    bool times = false;
    std::optional<std::string> session = std::nullopt;
    std::optional<std::string> subagent = std::nullopt;
    WENDLOW_REQUEST(MeetingGet, "meetingGet", "meeting_get", id, times, session, subagent);
};

struct MeetingTranscript {
    std::string id;
    WENDLOW_REQUEST(MeetingTranscript, "meetingTranscript", "meeting_transcript", id);
};

struct MeetingSearch {
    std::string query;
    std::optional<std::string> speaker = std::nullopt;
    std::optional<std::string> from = std::nullopt;
    std::optional<std::string> to = std::nullopt;
    std::optional<std::int64_t> limit = std::nullopt;
    WENDLOW_REQUEST(MeetingSearch, "meetingSearch", "meeting_search", query, speaker, from, to,
                    limit);
};

struct MeetingList {
    std::optional<std::string> day = std::nullopt;
    std::optional<std::string> person = std::nullopt;
    std::optional<std::string> app = std::nullopt;
    WENDLOW_REQUEST(MeetingList, "meetingList", "meeting_list", day, person, app);
};

struct MeetingStats {
    std::string id;
    WENDLOW_REQUEST(MeetingStats, "meetingStats", "meeting_stats", id);
};

struct MeetingAt {
    std::string id;
    std::string at;
    WENDLOW_REQUEST(MeetingAt, "meetingAt", "meeting_at", id, at);
};

struct MeetingLive {
    WENDLOW_REQUEST(MeetingLive, "meetingLive", "meeting_live");
};

} // namespace ReadCase
} // namespace wendlow
