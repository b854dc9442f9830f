#pragma once

#include "Figure.h"
#include "Records/HoursReports.h"

#include <QString>

#include <array>
#include <optional>

/// The band of figures of all time.
namespace wendlow::AllTimeBand {

struct Stat {
    /// Nothing: it is not known, or there is none.
    std::optional<Dashboard::Figure> value;
    QString label; ///< what stands below it
    bool operator==(const Stat&) const = default;
};

inline constexpr std::size_t size = 5;

/// What stands in place of a value that there is not.
QString none();
std::array<Stat, size> stats(const std::optional<AllTimeTotals>& totals);

} // namespace wendlow::AllTimeBand
