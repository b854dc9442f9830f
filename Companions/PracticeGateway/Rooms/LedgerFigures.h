#pragma once

#include <span>
#include <string>
#include <vector>

#include "ActivityLedger.h"
#include "Records/DayReports.h"
#include "Records/HoursReports.h"

/// Figures of a stretch of the ledger, counted from its activities, which stand in order.
namespace wendlow::LedgerFigures {

/// Seconds in which at least one of them went on.
std::int64_t covered(std::span<const Activity> activities);

/// The program with most seconds first.
DayPresence presence(std::string day, std::span<const Activity> activities);
SpanHoursReport span(std::string from, std::string to, std::span<const Activity> activities);
/// Runs of ten minutes at least without a gap above two, the longest first, five of them; and the
/// longest sitting, which no gap of a quarter of an hour breaks.
DayStretchReport stretches(std::string day, std::span<const Activity> activities);
AttentionReport attention(std::string day, std::span<const Activity> activities);
/// The site with most seconds first.
WebReport web(std::string day, std::span<const Activity> activities);

} // namespace wendlow::LedgerFigures
