#include "AllTimeBand.h"

#include "Say.h"

using namespace Qt::StringLiterals;

namespace wendlow::AllTimeBand {

namespace {

using Dashboard::Figure;
using Kind = Figure::Kind;

std::optional<Figure> perDay(const AllTimeTotals& totals) {
    if (totals.days < 1)
        return std::nullopt;
    return Figure{.kind = Kind::storage, .amount = totals.storageBytes / totals.days};
}

std::optional<Figure> processor(const AllTimeTotals& totals) {
    if (!totals.cpuMs || !totals.cpuWallMs || *totals.cpuWallMs < 1)
        return std::nullopt;
    constexpr double hundred = 100;
    return Figure{.kind = Kind::percent,
                  .percent = static_cast<double>(*totals.cpuMs) /
                             static_cast<double>(*totals.cpuWallMs) * hundred};
}

} // namespace

QString none() {
    return u"—"_s;
}

std::array<Stat, size> stats(const std::optional<AllTimeTotals>& totals) {
    std::array<Stat, size> band{{{{}, say("storage used")},
                                 {{}, say("days running")},
                                 {{}, say("per day on disk")},
                                 {{}, say("meetings captured")},
                                 {{}, say("avg CPU engine")}}};
    if (!totals)
        return band;
    band[0].value = Figure{.kind = Kind::storage, .amount = totals->storageBytes};
    band[1].value = Figure{.kind = Kind::count, .amount = totals->days};
    band[2].value = perDay(*totals);
    band[3].value = Figure{.kind = Kind::count, .amount = totals->meetings};
    band[4].value = processor(*totals);
    return band;
}

} // namespace wendlow::AllTimeBand
