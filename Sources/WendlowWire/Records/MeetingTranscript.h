#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Described.h"

namespace wendlow {

struct TranscriptLineRow {
    std::int64_t rowid = 0;
    std::string speaker;
    double at = 0; ///< seconds since 1970
    std::string text;
    std::string witness; ///< opaque; goes back unchanged when the line is deleted
    WENDLOW_RECORD(TranscriptLineRow, rowid, speaker, at, text, witness);
};

struct MeetingTranscriptAnswer {
    std::string meeting;
    std::optional<std::string> title = std::nullopt;
    std::optional<std::string> titleSource = std::nullopt;
    std::vector<std::string> who;
    std::vector<TranscriptLineRow> lines;
    WENDLOW_RECORD(MeetingTranscriptAnswer, meeting, title, titleSource, who, lines);
};

} // namespace wendlow
