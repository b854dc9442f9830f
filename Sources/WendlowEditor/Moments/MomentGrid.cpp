#include "Moments/MomentGrid.h"

#include "DateWords.h"
#include "Moments/MomentTextCard.h"
#include "Moments/MomentWords.h"

#include <QAccessible>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace wendlow {

namespace {

using Words = MomentCellModel::Words;

std::int64_t localDay(const EditorMoment& moment) {
    return DateWords::local(moment.at).date().toJulianDay();
}

/// Where so much of what is in sight goes by at once, and again before the page has rested, nobody
/// sees what is there.
constexpr double mostOfSight = 0.75;
constexpr std::chrono::milliseconds rest(100);

constexpr std::size_t mostHeadWords = 100;

} // namespace

MomentGrid::MomentGrid(const HeldMoments& held, Hooks hooks)
    : m_held(held), m_hooks(std::move(hooks)), m_layout(localDay) {
    m_rush.setSingleShot(true);
    m_rush.setInterval(rest);
    connect(&m_rush, &QTimer::timeout, this, [this] {
        tellCells();
        if (m_owesTiles)
            showTiles();
    });
}

void MomentGrid::grow(std::size_t from) {
    if (from == m_held.size())
        return;
    // What stands first in sight is to stand there still.
    const bool isSeen = m_layout.count() > 0 && m_top > m_layout.measures().top;
    const std::size_t anchor = isSeen ? m_layout.held(m_layout.firstBelow(m_top)) : 0;
    const double before = isSeen ? m_layout.spot(m_layout.shown(anchor)).top : 0;
    m_layout.add(m_held, from);
    m_headWords.clear();
    if (!m_current)
        m_current = m_layout.held(0);
    const double by = isSeen ? m_layout.spot(m_layout.shown(anchor)).top - before : 0;
    Q_EMIT laidOut();
    if (by != 0) {
        m_top += by;
        Q_EMIT shifted(by);
    }
    lookAgain();
    Q_EMIT currentChanged();
}

void MomentGrid::startAfresh() {
    m_layout.clear();
    m_viewport.clear();
    m_cellOf.clear();
    m_current.reset();
    m_headWords.clear();
    m_top = 0;
    for (const auto& cell : m_cells)
        cell->forget();
    m_layout.add(m_held, 0);
    if (m_layout.count() > 0)
        m_current = m_layout.held(0);
    else
        for (std::size_t at = 0; at < m_cells.size(); ++at)
            assign(at, std::nullopt, Words::now);
    Q_EMIT laidOut();
    lookAgain();
    Q_EMIT currentChanged();
}

void MomentGrid::turnDay() {
    followHeads();
}

void MomentGrid::hide() {
    m_viewport.clear();
    m_owesTiles = false;
    m_hooks.showTiles({});
}

void MomentGrid::measure(int columns, int cellHeight, int rowGap, int top, int headGap,
                         int headHeight) {
    const MomentLayout::Measures measures{.columns = std::max(1, columns),
                                          .cellHeight = cellHeight,
                                          .rowGap = rowGap,
                                          .top = top,
                                          .headGap = headGap,
                                          .headHeight = headHeight};
    if (measures == m_layout.measures())
        return;
    const bool isSeen = m_layout.count() > 0 && m_top > m_layout.measures().top;
    const std::size_t anchor = isSeen ? m_layout.firstBelow(m_top) : 0;
    const double before = isSeen ? m_layout.spot(anchor).top : 0;
    m_layout.measure(measures);
    const double by = isSeen ? m_layout.spot(anchor).top - before : 0;
    Q_EMIT laidOut();
    if (by != 0) {
        m_top += by;
        Q_EMIT shifted(by);
    }
    lookAgain();
}

void MomentGrid::look(double top, double height) {
    const bool isPassing = std::abs(top - m_top) >= mostOfSight * height;
    m_top = top;
    m_height = height;
    if (m_layout.count() > 0 && height > 0) {
        // A row more at each end, so that what comes into sight is there already.
        const double more = m_layout.rowPitch();
        // Words are most of the work. Who is read to hears also what nobody sees.
        const bool isRushing = isPassing && m_rush.isActive() && !QAccessible::isActive();
        placeCells(m_layout.firstBelow(top - more), m_layout.lastAbove(top + height + more),
                   isRushing ? Words::later : Words::now);
        if (!isRushing)
            tellCells();
        followViewport(top - more, top + height + more, isPassing);
    }
    followHeads();
}

void MomentGrid::placeCells(std::size_t first, std::size_t last, Words words) {
    std::vector<std::size_t> wanted;
    for (std::size_t place = first; place <= last; ++place)
        wanted.push_back(m_layout.held(place));
    const auto shownFirst = [&](std::size_t held) {
        const std::size_t place = m_layout.shown(held);
        return place >= first && place <= last;
    };
    if (m_current && !shownFirst(*m_current))
        wanted.push_back(*m_current);
    // The cells of those that have gone are free for those that have come.
    std::vector<std::size_t> free;
    for (std::size_t at = 0; at < m_cells.size(); ++at) {
        const auto held = m_cells[at]->held();
        if (!held || (!shownFirst(*held) && held != m_current))
            free.push_back(at);
    }
    std::vector<std::size_t> come;
    for (const std::size_t held : wanted)
        if (!m_cellOf.contains(held))
            come.push_back(held);
    for (std::size_t at = 0; at < free.size(); ++at)
        assign(free[at], at < come.size() ? std::optional(come[at]) : std::nullopt, words);
    if (come.size() > free.size()) {
        const int more = static_cast<int>(come.size() - free.size());
        beginInsertRows({}, rowCount(), rowCount() + more - 1);
        for (std::size_t at = free.size(); at < come.size(); ++at) {
            m_cells.push_back(std::make_unique<MomentCellModel>(this));
            put(m_cells.size() - 1, come[at], words);
        }
        endInsertRows();
    }
    // Those that stay may have come to stand elsewhere.
    for (const auto& cell : m_cells)
        if (cell->held())
            stand(*cell);
}

void MomentGrid::tellCells() {
    for (const auto& cell : m_cells)
        if (cell->held())
            cell->tell(m_held[*cell->held()]);
}

void MomentGrid::assign(std::size_t at, std::optional<std::size_t> held, Words words) {
    MomentCellModel& cell = *m_cells[at];
    if (cell.held() == held && !cell.isStale())
        return;
    if (cell.held())
        m_cellOf.erase(*cell.held());
    if (held)
        put(at, *held, words);
    else
        cell.hide();
}

void MomentGrid::put(std::size_t at, std::size_t held, Words words) {
    MomentCellModel& cell = *m_cells[at];
    m_cellOf[held] = at;
    cell.show(held, m_held[held], words);
    cell.setCurrent(held == m_current);
    stand(cell);
}

void MomentGrid::stand(MomentCellModel& cell) const {
    const std::size_t place = m_layout.shown(*cell.held());
    cell.stand(place, m_layout.spot(place));
}

void MomentGrid::followViewport(double top, double bottom, bool isPassing) {
    const std::size_t first = m_layout.firstBelow(top);
    const std::size_t last = m_layout.lastAbove(bottom);
    std::set<std::size_t> now;
    for (std::size_t place = first; place <= last; ++place)
        now.insert(m_layout.held(place));
    const std::set<std::size_t> before = m_viewport.onScreen();
    if (before == now)
        return;
    for (const std::size_t held : before)
        if (!now.contains(held))
            m_viewport.disappeared(held);
    for (const std::size_t held : now)
        m_viewport.appeared(held);
    if (!isPassing || before.empty() || !m_rush.isActive()) {
        showTiles();
    } else if (!std::exchange(m_owesTiles, true)) {
        // One screenful after the other goes by: what is asked for now has gone before it comes.
        m_hooks.showTiles({});
    }
    if (isPassing)
        m_rush.start();
    if (last + 1 == m_layout.count())
        m_hooks.reachedEnd();
}

void MomentGrid::showTiles() {
    m_owesTiles = false;
    m_hooks.showTiles(m_viewport.keys(m_held));
}

void MomentGrid::followHeads() {
    const QDate today = m_hooks.today();
    std::vector<MomentHead> heads;
    QString sticky;
    double offset = 0;
    if (m_layout.days() > 0) {
        const double height = m_layout.measures().headHeight;
        const std::size_t passing = m_layout.dayAt(m_top);
        const double passingTop =
            passing == 0 ? m_layout.measures().top - height : m_layout.headTop(passing);
        if (passingTop < m_top) {
            sticky = headWords(passing, today);
            if (passing + 1 < m_layout.days())
                offset = std::min(0.0, m_layout.headTop(passing + 1) - m_top - height);
        }
        // The first day's head is the title.
        for (std::size_t day = std::max<std::size_t>(1, passing); day < m_layout.days(); ++day) {
            const double headTop = m_layout.headTop(day);
            if (headTop > m_top + m_height)
                break;
            // The one that passes stands in for its own.
            if (day == passing && !sticky.isEmpty())
                continue;
            heads.push_back({.id = std::to_string(m_layout.day(day)),
                             .top = headTop,
                             .title = headWords(day, today)});
        }
    }
    if (heads != m_heads.rows())
        m_heads.show(std::move(heads));
    if (sticky == m_stickyTitle && offset == m_stickyOffset)
        return;
    m_stickyTitle = std::move(sticky);
    m_stickyOffset = offset;
    Q_EMIT stickyChanged();
}

/// They are wanted with each frame, and are long to make.
QString MomentGrid::headWords(std::size_t day, const QDate& today) {
    if (std::exchange(m_headsToday, today) != today || m_headWords.size() > mostHeadWords)
        m_headWords.clear();
    QString& words = m_headWords[m_layout.day(day)];
    if (words.isEmpty())
        words =
            day == 0 ? MomentWords::heading(dayOf(0), today) : MomentWords::day(dayOf(day), today);
    return words;
}

double MomentGrid::topOf(int place) const {
    return place >= 0 && place < count() ? m_layout.spot(static_cast<std::size_t>(place)).top : 0;
}

int MomentGrid::columnOf(int place) const {
    return place >= 0 && place < count() ? m_layout.spot(static_cast<std::size_t>(place)).column
                                         : 0;
}

int MomentGrid::stepFrom(int place, Step step) const {
    if (count() == 0)
        return -1;
    auto at = static_cast<std::size_t>(std::clamp(place, 0, count() - 1));
    const int page = std::max(1, static_cast<int>(m_height / m_layout.rowPitch()) - 1);
    switch (step) {
    case Left:
        at = m_layout.step(at, MomentLayout::Step::left);
        break;
    case Right:
        at = m_layout.step(at, MomentLayout::Step::right);
        break;
    case Up:
    case PageUp:
        for (int rows = step == Up ? 1 : page; rows > 0; --rows)
            at = m_layout.step(at, MomentLayout::Step::up);
        break;
    case Down:
    case PageDown:
        for (int rows = step == Down ? 1 : page; rows > 0; --rows)
            at = m_layout.step(at, MomentLayout::Step::down);
        break;
    case First:
        at = 0;
        break;
    case Last:
        at = m_layout.count() - 1;
        break;
    }
    return static_cast<int>(at);
}

void MomentGrid::setCurrent(int place) {
    if (place < 0 || place >= count() || place == current())
        return;
    m_current = m_layout.held(static_cast<std::size_t>(place));
    lookAgain();
    for (const auto& cell : m_cells)
        cell->setCurrent(cell->held() && cell->held() == m_current);
    Q_EMIT currentChanged();
}

int MomentGrid::current() const {
    return m_current ? static_cast<int>(m_layout.shown(*m_current)) : -1;
}

QStringList MomentGrid::wideTimes() {
    return MomentTextCard::wideTimes();
}

int MomentGrid::currentCell() const {
    const auto cell = m_current ? m_cellOf.find(*m_current) : m_cellOf.end();
    return cell == m_cellOf.end() ? -1 : static_cast<int>(cell->second);
}

const EditorMoment& MomentGrid::moment(int place) const {
    return m_held[m_layout.held(static_cast<std::size_t>(place))];
}

int MomentGrid::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_cells.size());
}

QVariant MomentGrid::data(const QModelIndex& index, int role) const {
    if (role != ContentRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    return QVariant::fromValue(m_cells[static_cast<std::size_t>(index.row())].get());
}

QHash<int, QByteArray> MomentGrid::roleNames() const {
    return {{ContentRole, "content"}};
}

} // namespace wendlow

#include "moc_MomentGrid.cpp"
