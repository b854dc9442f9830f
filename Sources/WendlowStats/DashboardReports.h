#pragma once

#include "DashboardRecords.h"
#include "Records/DayReports.h"
#include "Records/HoursReports.h"
#include "WireData.h"

#include <map>
#include <string>
#include <vector>

/// The daemon's reports as the window's records.
namespace wendlow::Dashboard {

Today todayOf(const DayPresence& report);
Week weekOf(const SpanHoursReport& report);
std::vector<FocusRun> focusOf(const DayStretchReport& report);
std::vector<Session> sessionsOf(const TopSessionsReport& report);
Attention attentionOf(const AttentionReport& report);
/// Without icons.
Web webOf(const WebReport& report);

/// The hosts whose icons are asked for: those of the first eight sites.
std::vector<std::string> iconHosts(const Web& web);
/// Gives each site the icon of its domain, as far as there is one.
void addIcons(Web& web, const std::map<std::string, WireData>& icons);

} // namespace wendlow::Dashboard
