#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Records/MeetingTranscript.h"

namespace wendlow {

struct MeetingRecord;

/// How meetings are put into words.
namespace MeetingWords {

/// How a voice without a name is called in a transcript.
inline constexpr std::string_view guest = "Guest";

/// The named speakers, in the order in which they first spoke.
std::vector<std::string> speakers(std::span<const TranscriptLineRow> lines);

/// One line of the list of meetings.
std::string listed(const MeetingRecord& meeting, std::span<const TranscriptLineRow> lines);

/// The proof of what a line says; another speaker, time or text gives another witness.
std::string witness(const TranscriptLineRow& line);

} // namespace MeetingWords
} // namespace wendlow
