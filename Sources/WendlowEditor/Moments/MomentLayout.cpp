#include "Moments/MomentLayout.h"

#include <algorithm>
#include <cmath>

namespace wendlow {

namespace {

/// The last of these whose `key` is at most `value`; the first where none is.
template<class Days, class Value, class Key>
std::size_t lastUpTo(const Days& days, const Value& value, Key key) {
    const auto behind = std::ranges::upper_bound(days, value, {}, key);
    return behind == days.begin() ? 0 : static_cast<std::size_t>(behind - days.begin()) - 1;
}

} // namespace

void MomentLayout::add(const HeldMoments& held, std::size_t from) {
    for (std::size_t place = from; place < held.size(); ++place) {
        const std::int64_t day = m_dayOf(held[place]);
        auto at = std::ranges::lower_bound(m_days, day, std::greater(), &Day::day);
        if (at == m_days.end() || at->day != day)
            at = m_days.insert(at, {.day = day, .places = {}});
        at->places.push_back(static_cast<std::uint32_t>(place));
        m_dayPlaces.push_back(day);
    }
    this->place();
}

void MomentLayout::clear() {
    m_days.clear();
    m_dayPlaces.clear();
}

void MomentLayout::measure(const Measures& measures) {
    m_measures = measures;
    place();
}

void MomentLayout::place() {
    std::size_t first = 0;
    double top = m_measures.top;
    for (Day& day : m_days) {
        if (first > 0)
            top += m_measures.headGap + m_measures.headHeight;
        day.first = first;
        day.top = top;
        first += day.places.size();
        top = bottom(day);
    }
}

std::size_t MomentLayout::rows(const Day& day) const {
    const auto columns = static_cast<std::size_t>(m_measures.columns);
    return (day.places.size() + columns - 1) / columns;
}

double MomentLayout::bottom(const Day& day) const {
    return day.top + static_cast<double>(rows(day)) * rowPitch() - m_measures.rowGap;
}

double MomentLayout::height() const {
    return m_days.empty() ? 0 : bottom(m_days.back());
}

std::size_t MomentLayout::dayOfShown(std::size_t shown) const {
    return lastUpTo(m_days, shown, &Day::first);
}

std::size_t MomentLayout::held(std::size_t shown) const {
    const Day& day = m_days[dayOfShown(shown)];
    return day.places[shown - day.first];
}

std::size_t MomentLayout::shown(std::size_t held) const {
    const auto day = std::ranges::lower_bound(m_days, m_dayPlaces[held], std::greater(), &Day::day);
    const auto place = std::ranges::lower_bound(day->places, held);
    return day->first + static_cast<std::size_t>(place - day->places.begin());
}

MomentLayout::Spot MomentLayout::spot(std::size_t shown) const {
    const Day& day = m_days[dayOfShown(shown)];
    const auto columns = static_cast<std::size_t>(m_measures.columns);
    const std::size_t at = shown - day.first;
    const std::size_t row = at / columns;
    return {.column = static_cast<int>(at % columns),
            .top = day.top + static_cast<double>(row) * rowPitch()};
}

std::size_t MomentLayout::firstBelow(double y) const {
    const auto columns = static_cast<std::size_t>(m_measures.columns);
    // The first day that does not end above.
    const auto day = std::ranges::partition_point(
        m_days, [&](const Day& candidate) { return bottom(candidate) <= y; });
    if (day == m_days.end())
        return count() - 1;
    const double rowsAbove = std::floor((y - day->top + m_measures.rowGap) / rowPitch());
    const auto row = static_cast<std::size_t>(std::max(0.0, rowsAbove));
    return day->first + std::min(row * columns, day->places.size() - 1);
}

std::size_t MomentLayout::lastAbove(double y) const {
    const auto columns = static_cast<std::size_t>(m_measures.columns);
    const auto behind = std::ranges::lower_bound(m_days, y, {}, &Day::top);
    const Day& day = behind == m_days.begin() ? m_days.front() : *(behind - 1);
    const double rowsAbove = std::ceil((y - day.top) / rowPitch());
    const auto row = static_cast<std::size_t>(std::max(1.0, rowsAbove));
    return day.first + std::min(row * columns, day.places.size()) - 1;
}

std::size_t MomentLayout::step(std::size_t shown, Step step) const {
    const std::size_t last = count() - 1;
    const auto columns = static_cast<std::size_t>(m_measures.columns);
    if (step == Step::left)
        return shown == 0 ? 0 : shown - 1;
    if (step == Step::right)
        return std::min(shown + 1, last);
    const std::size_t at = dayOfShown(shown);
    const Day& day = m_days[at];
    const std::size_t row = (shown - day.first) / columns;
    const std::size_t column = (shown - day.first) % columns;
    if (step == Step::down) {
        if (row + 1 < rows(day))
            return day.first + std::min((row + 1) * columns + column, day.places.size() - 1);
        if (at + 1 == m_days.size())
            return shown;
        const Day& next = m_days[at + 1];
        return next.first + std::min(column, next.places.size() - 1);
    }
    if (row > 0)
        return day.first + (row - 1) * columns + column;
    if (at == 0)
        return shown;
    const Day& before = m_days[at - 1];
    return before.first + std::min((rows(before) - 1) * columns + column, before.places.size() - 1);
}

std::size_t MomentLayout::dayAt(double y) const {
    if (m_days.empty())
        return 0;
    const double heads = m_measures.headHeight;
    return lastUpTo(m_days, y, [heads](const Day& day) { return day.top - heads; });
}

double MomentLayout::headTop(std::size_t day) const {
    return day == 0 ? 0 : m_days[day].top - m_measures.headHeight;
}

} // namespace wendlow
