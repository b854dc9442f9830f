#pragma once

#include "DashboardRecords.h"

#include <QString>

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

/// What the cards of the Stats window say.
namespace wendlow::Dashboard {

/// "42m", "3h", "3h 7m". Seconds that fill no minute are left out.
QString dashTime(std::int64_t seconds);
/// Nothing left out: "3h 7m 12s", "12s".
QString exactTime(std::int64_t seconds);
/// What an hour of the day, 0 to 23, is called.
QString dayPart(int hour);
/// The same of a time, in seconds since 1970, in local time; empty for one that no calendar has.
QString dayPartOf(double time);

/// One row of the card of apps or sites.
struct Bar {
    QString name;
    double fraction = 0; ///< of the first row's; below 0 and above 1 only where the figures are so
    QString label;
    QString fullName;
    QString exact; ///< time
    bool operator==(const Bar&) const = default;
};

/// A name of exactly two words by its second one.
QString shortName(const std::string& name);
/// The first `count` of a sorted list; none where the first has no time.
std::vector<Bar> appBars(std::span<const AppShare> top, std::size_t count);
std::vector<Bar> webBars(std::span<const WebSite> top, std::size_t count);

/// The state of one card.
struct DayCardFace {
    enum class Kind { empty, loading, loaded };

    Kind kind = Kind::loading;
    QString words; ///< of an empty one
    bool operator==(const DayCardFace&) const = default;
};

/// The apps that the card of apps lists: those that are no browser.
std::vector<AppShare> listedApps(const Today& today);

DayCardFace appsFace(const std::optional<Today>& today);
DayCardFace webFace(const std::optional<Web>& web);
DayCardFace attentionFace(const std::optional<Attention>& attention);
QString appsTitle(const std::optional<Today>& today);
QString webTitle(const std::optional<Web>& web);

} // namespace wendlow::Dashboard
