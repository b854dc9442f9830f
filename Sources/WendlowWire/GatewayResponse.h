#pragma once

#include <string_view>
#include <variant>

#include "Answers/DayAnswers.h"
#include "Answers/MeetingAnswers.h"
#include "Answers/MemoryAnswers.h"
#include "Answers/PictureAnswers.h"
#include "Answers/PlainAnswers.h"
#include "Answers/PromptAnswers.h"
#include "Answers/StateAnswers.h"
#include "Described.h"

namespace wendlow {

/// Every answer of the daemon. Plain data, free to cross threads.
struct GatewayResponse
    : std::variant<AnswerCase::Cards, AnswerCase::KindCards, AnswerCase::KindTypes,
                   AnswerCase::Primed, AnswerCase::StandingWalk, AnswerCase::Sessions,
                   AnswerCase::RulesCard, AnswerCase::Thing, AnswerCase::Presence,
                   AnswerCase::SpanHours, AnswerCase::AllTime, AnswerCase::LongestChapter,
                   AnswerCase::Stretches, AnswerCase::TopSessions, AnswerCase::Attention,
                   AnswerCase::Web, AnswerCase::ScopeBoard, AnswerCase::ModBoard, AnswerCase::Text,
                   AnswerCase::Image, AnswerCase::Images, AnswerCase::Rules, AnswerCase::Icons,
                   AnswerCase::Flag, AnswerCase::FrontState, AnswerCase::Phrase,
                   AnswerCase::TextBrowse, AnswerCase::TextIndexAudit, AnswerCase::Transcript,
                   AnswerCase::LineDelete, AnswerCase::Grants, AnswerCase::FrameStats,
                   AnswerCase::ReelStats, AnswerCase::DiskUsed, AnswerCase::NoteID,
                   AnswerCase::Unimplemented, AnswerCase::Failure, AnswerCase::Ok> {
    WENDLOW_CASES(GatewayResponse);

    static constexpr std::string_view typeName = "GatewayResponse";

    /// The case's name on the wire, as "textBrowse".
    std::string_view caseName() const;
};

} // namespace wendlow
