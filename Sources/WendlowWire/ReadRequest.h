#pragma once

#include <string_view>
#include <variant>

#include "Described.h"
#include "Requests/DayReads.h"
#include "Requests/MeetingReads.h"
#include "Requests/MemoryReads.h"
#include "Requests/MomentReads.h"
#include "Requests/PromptReads.h"
#include "Requests/StateReads.h"

namespace wendlow {

/// A question that changes nothing; each case is one.
struct ReadRequest
    : std::variant<
          ReadCase::Recall, ReadCase::Primed, ReadCase::StandingRules, ReadCase::Search,
          ReadCase::Grep, ReadCase::GetByType, ReadCase::ListTypes, ReadCase::Grab,
          ReadCase::GetDay, ReadCase::DayCard, ReadCase::DayPresence, ReadCase::SpanHours,
          ReadCase::AllTime, ReadCase::DayLongestChapter, ReadCase::DayStretches,
          ReadCase::DayTopSessions, ReadCase::DayAttention, ReadCase::DayWeb, ReadCase::GetMoment,
          ReadCase::GetChapter, ReadCase::TitleTrace, ReadCase::MeetingGet,
          ReadCase::MeetingTranscript, ReadCase::MeetingSearch, ReadCase::MeetingList,
          ReadCase::MeetingStats, ReadCase::MeetingAt, ReadCase::GetEntity, ReadCase::SessionList,
          ReadCase::Tally, ReadCase::StorageStats, ReadCase::RecallStats, ReadCase::Coverage,
          ReadCase::Browse, ReadCase::TextBrowse, ReadCase::TextIndexAudit, ReadCase::GetScreen,
          ReadCase::GetThumbnail, ReadCase::OpenScreens, ReadCase::Favicons, ReadCase::ModBoard,
          ReadCase::Health, ReadCase::GetRules, ReadCase::RecoveryState, ReadCase::ClassifierStatus,
          ReadCase::ConnectedApps, ReadCase::FrontState, ReadCase::MeetingLive,
          ReadCase::DaemonBuild, ReadCase::ModsList, ReadCase::DiagnosticLoggingState,
          ReadCase::FrameKeepState, ReadCase::FrameStats, ReadCase::ReelKeepState,
          ReadCase::ReelStats, ReadCase::DiskUsed, ReadCase::Grants, ReadCase::ConfigScan> {
    WENDLOW_CASES(ReadRequest);

    static constexpr std::string_view typeName = "ReadRequest";

    /// The snake-case word that names the request in logs and refusals.
    std::string_view verb() const;
};

} // namespace wendlow
