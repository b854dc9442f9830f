#pragma once

#include "Moments/HeldMoments.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace wendlow {

/// Where each moment stands: in rows of cells below the head of its day, the newest day first, the
/// moments of a day in the order held. Every height is known beforehand, so that nothing moves
/// while it is scrolled, and a day among a thousand costs what one among ten does. One thread.
class MomentLayout {
public:
    /// The day of a moment, in days since any fixed one.
    using DayOf = std::function<std::int64_t(const EditorMoment&)>;

    /// In pixels.
    struct Measures {
        int columns = 1;
        int cellHeight = 162;
        int rowGap = 20;
        int top = 0;      ///< of the first day's moments, below the title of the page
        int headGap = 12; ///< between the last row of a day and the head of the next
        int headHeight = 0;

        bool operator==(const Measures&) const = default;
    };
    struct Spot {
        int column = 0;
        double top = 0;

        bool operator==(const Spot&) const = default;
    };
    enum class Step { left, right, up, down };

    explicit MomentLayout(DayOf dayOf) : m_dayOf(std::move(dayOf)) {}

    /// Takes those that are held from this place on.
    void add(const HeldMoments& held, std::size_t from);
    void clear();
    void measure(const Measures& measures);
    const Measures& measures() const { return m_measures; }

    std::size_t count() const { return m_dayPlaces.size(); }
    double height() const;
    double rowPitch() const { return m_measures.cellHeight + m_measures.rowGap; }

    /// The moment at a place of the order shown, by its place among those held; and back.
    std::size_t held(std::size_t shown) const;
    std::size_t shown(std::size_t held) const;
    Spot spot(std::size_t shown) const;
    /// The first moment of which something lies below `y`, and the last of which something lies
    /// above it. There must be some.
    std::size_t firstBelow(double y) const;
    std::size_t lastAbove(double y) const;
    /// Where a step leads; to itself where there is none.
    std::size_t step(std::size_t shown, Step step) const;

    std::size_t days() const { return m_days.size(); }
    std::int64_t day(std::size_t at) const { return m_days[at].day; }
    /// The day whose head or moments stand at `y`; the last that begins above it.
    std::size_t dayAt(double y) const;
    /// The top of a day's head; for the first day, whose head is the title, 0.
    double headTop(std::size_t day) const;

private:
    struct Day {
        std::int64_t day = 0;
        std::vector<std::uint32_t> places; ///< among those held, rising
        std::size_t first = 0;             ///< in the order shown
        double top = 0;                    ///< of its first row
    };

    void place();
    std::size_t dayOfShown(std::size_t shown) const;
    std::size_t rows(const Day& day) const;
    double bottom(const Day& day) const;

    DayOf m_dayOf;
    Measures m_measures;
    std::vector<Day> m_days;               ///< newest first
    std::vector<std::int64_t> m_dayPlaces; ///< by place among those held: its day
};

} // namespace wendlow
