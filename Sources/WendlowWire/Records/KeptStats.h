#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Described.h"

namespace wendlow {

/// How far the deletion of pictures has come.
struct PurgeProgress {
    std::int64_t daysRemaining = 0;
    std::optional<std::int64_t> bytesRemaining = std::nullopt;
    std::vector<std::string> skipped;
    WENDLOW_RECORD(PurgeProgress, daysRemaining, bytesRemaining, skipped);
};

struct FrameStats {
    std::int64_t screenshots = 0;
    std::optional<std::int64_t> bytes = std::nullopt;
    std::optional<PurgeProgress> purge = std::nullopt;
    WENDLOW_RECORD(FrameStats, screenshots, bytes, purge);
};

struct ReelStats {
    std::int64_t meetings = 0;
    std::int64_t bytes = 0;
    WENDLOW_RECORD(ReelStats, meetings, bytes);
};

/// Bytes on the disk.
struct DiskUsed {
    std::int64_t text = 0;
    std::int64_t transcripts = 0;
    std::int64_t reel = 0;
    std::optional<std::int64_t> frames = std::nullopt;
    WENDLOW_RECORD(DiskUsed, text, transcripts, reel, frames);
};

} // namespace wendlow
