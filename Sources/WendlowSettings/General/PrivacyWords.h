#pragma once

#include "Records/KeptStats.h"
#include "TranslationContext.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The words of the pane of what is kept, and what decides them. Pure.
namespace wendlow::PrivacyWords {

/// The figure of the disk's use that a row shows.
enum class Used { text, transcripts, reel, frames };
/// What a row offers: what is always kept, or one of the two switches.
enum class Keep { always, meetings, everyday };

/// A row of the table, its words still to be said.
struct KeepRow {
    const char* label;
    const char* rate;
    const char* month;
    Used used;
    Keep keep;
};

inline constexpr std::array<KeepRow, 4> rows{{
    {sayLater("Screen text and search"), sayLater("12 MB/day"), sayLater("370 MB"), Used::text,
     Keep::always},
    {sayLater("Meeting transcripts"), sayLater("1.3 MB/hour"), sayLater("30 MB"), Used::transcripts,
     Keep::always},
    {sayLater("Meeting screenshots"), sayLater("120 MB/hour"), sayLater("2.6 GB"), Used::reel,
     Keep::meetings},
    {sayLater("All day screenshots"), sayLater("160 MB/day"), sayLater("4.9 GB"), Used::frames,
     Keep::everyday},
}};

/// A dash while the figure is not known.
std::string used(Used figure, const std::optional<DiskUsed>& disk);

/// Days that are still to be cleared and can be.
std::int64_t daysToClear(const PurgeProgress& purge);
std::string frameKeepProgress(std::int64_t days, std::optional<std::int64_t> bytes);
std::string frameKeepNotCleared(std::int64_t days);
/// Of a deletion: how far it has come, or what it has left; empty for none.
std::string purge(const std::optional<PurgeProgress>& purge);

/// The bodies of the two questions. What is not known has its own words in them.
std::string frameKeepConfirmBody(std::optional<std::int64_t> screenshots,
                                 std::optional<std::int64_t> bytes, bool meetingsKept);
std::string reelKeepConfirmBody(const std::optional<ReelStats>& stats);

std::string diagnosticLoggingDetail(bool on);

/// Whether the names that a person has typed are others than those that are held, which are joined.
/// No names at all are no change.
bool selfNamesChanged(const std::string& text, const std::string& held);

} // namespace wendlow::PrivacyWords
