#pragma once

#include "Described.h"
#include "LineDeleteOutcome.h"
#include "Records/MeetingTranscript.h"

namespace wendlow {

/// Lines of meetings.
namespace AnswerCase {

struct Transcript {
    MeetingTranscriptAnswer _0;
    WENDLOW_CASE(Transcript, "transcript", _0);
};

struct LineDelete {
    LineDeleteOutcome _0 = LineDeleteOutcome::notFound;
    WENDLOW_CASE(LineDelete, "lineDelete", _0);
};

} // namespace AnswerCase
} // namespace wendlow
