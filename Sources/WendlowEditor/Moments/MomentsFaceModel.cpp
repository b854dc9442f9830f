#include "Moments/MomentsFaceModel.h"

#include "DateWords.h"
#include "Floor/RowText.h"
#include "Model/EditorRail.h"
#include "Moments/MomentWords.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace wendlow {

namespace {

using namespace std::chrono_literals;
namespace Case = EditorAnswerStateCase;

/// A clock that is set, or a machine that slept, is noticed this late.
constexpr std::chrono::milliseconds longestSleep = 10min;

std::int64_t wholePages(std::int64_t count) {
    constexpr std::int64_t step = MomentsFaceModel::pageStep;
    return (count + step - 1) / step * step;
}

} // namespace

MomentsFaceModel::MomentsFaceModel(PageSource& pages, TileSource& tiles, FaceActions actions,
                                   MomentLightbox::Door door, TileRoom::Decode decode)
    : m_pages(pages), m_tiles(tiles), m_actions(std::move(actions)),
      m_room(tiles, std::move(decode)), m_lightbox(m_room, std::move(door)),
      m_grid(m_held, hooks()) {
    connect(&m_lightbox, &MomentLightbox::changed, this, &FaceModel::modalChanged);
    m_midnight.setSingleShot(true);
    connect(&m_midnight, &QTimer::timeout, this, &MomentsFaceModel::watchMidnight);
}

MomentGrid::Hooks MomentsFaceModel::hooks() {
    return {.today = [this] { return today(); },
            .showTiles =
                [this](std::vector<std::int64_t> keys) {
                    m_tiles.showTiles(keys);
                    m_room.show(std::move(keys));
                },
            .reachedEnd = [this] { reachedEnd(); }};
}

QUrl MomentsFaceModel::page() const {
    return QUrl(QStringLiteral("qrc:/qt/qml/WendlowEditorMoments/MomentsFace.qml"));
}

QDate MomentsFaceModel::today() const {
    return DateWords::local(m_actions.today ? m_actions.today() : std::chrono::system_clock::now())
        .date();
}

void MomentsFaceModel::show(const FaceView& view) {
    if (!isOpen())
        return;
    const bool other = m_generation != view.generation || !m_ask.sameQuery(view.ask);
    m_ask = view.ask;
    m_answer = view.answer;
    if (other) {
        m_generation = view.generation;
        m_visibleCount = pageStep;
        m_stale = true;
        m_goesToEnd = false;
        if (m_ask.limit != EditorAsk::page || m_ask.offset != 0) {
            EditorAsk first = m_ask;
            first.limit = EditorAsk::page;
            first.offset = 0;
            m_actions.ask(std::move(first)); // shows this anew
            return;
        }
    }
    if (isAnswered())
        take();
    Q_EMIT changed();
}

/// The answer is to what is asked now.
bool MomentsFaceModel::isAnswered() const {
    return m_answer->ready() && m_answer->ask == m_ask && m_ask.kind == EditorKind::moment;
}

void MomentsFaceModel::take() {
    if (std::exchange(m_stale, false)) {
        m_held.clear();
        m_held.fold(m_answer->moments);
        m_grid.startAfresh();
        Q_EMIT turned();
    } else {
        const std::size_t before = m_held.size();
        const std::size_t come = m_held.fold(m_answer->moments);
        m_grid.grow(before);
        if (come == 0 && m_goesToEnd && !m_answer->moments.empty()) {
            // Some have come at the top meanwhile, and pushed down what was here already.
            m_ask.offset += m_ask.limit;
        }
    }
    serveReveal();
    if (m_goesToEnd)
        readOn();
}

void MomentsFaceModel::appear(EditorAsk& /*ask*/) {
    m_generation.reset();
    m_day = today();
    watchMidnight();
}

void MomentsFaceModel::leave(EditorAsk& /*ask*/) {
    m_lightbox.dismiss();
    m_midnight.stop();
    m_goesToEnd = false;
    m_wanted.clear();
    m_stale = true;
    m_held.clear();
    m_grid.startAfresh();
    m_grid.hide();
}

bool MomentsFaceModel::back() {
    if (!m_lightbox.isOpen())
        return false;
    m_lightbox.dismiss();
    return true;
}

void MomentsFaceModel::reveal(const FoundHit& found, EditorAsk& /*ask*/) {
    if (const auto* const place = std::get_if<SearchDestination::Moment>(&found.hit.destination))
        m_wanted = place->id;
}

void MomentsFaceModel::serveReveal() {
    if (m_wanted.empty())
        return;
    const auto& moments = m_held.moments();
    const auto found = std::ranges::find(moments, std::exchange(m_wanted, {}), &EditorMoment::id);
    if (found != moments.end())
        Q_EMIT revealed(static_cast<int>(
            m_grid.layout().shown(static_cast<std::size_t>(found - moments.begin()))));
}

bool MomentsFaceModel::isFilled() const {
    return m_held.size() > 0 || !m_answer->ask || m_answer->ready();
}

bool MomentsFaceModel::isStill() const {
    return m_held.size() == 0 || m_room.isStill();
}

void MomentsFaceModel::openMoment(int place) {
    if (place >= 0 && place < m_grid.count())
        m_lightbox.show(m_grid.moment(place));
}

/// The page is being laid out, which is no time to ask.
void MomentsFaceModel::reachedEnd() {
    if (std::exchange(m_endIsNear, true))
        return;
    QMetaObject::invokeMethod(this, &MomentsFaceModel::nextPage, Qt::QueuedConnection);
}

void MomentsFaceModel::nextPage() {
    m_endIsNear = false;
    if (!isOpen() || m_stale || m_goesToEnd || std::ssize(m_held.moments()) < m_visibleCount)
        return;
    m_visibleCount += pageStep;
    EditorAsk next = m_ask;
    next.limit = std::max(m_visibleCount, EditorAsk::page);
    next.offset = 0;
    if (next != m_ask)
        m_actions.ask(std::move(next));
}

void MomentsFaceModel::goToEnd() {
    if (m_stale)
        return;
    m_goesToEnd = true;
    readOn();
}

void MomentsFaceModel::readOn() {
    const auto held = std::ssize(m_held.moments());
    if (held >= m_answer->total || m_answer->moments.empty()) {
        m_goesToEnd = false;
        if (held > m_visibleCount)
            m_visibleCount = wholePages(held + 1);
        if (held > 0)
            Q_EMIT revealed(m_grid.count() - 1);
        return;
    }
    // Behind what is held: a page with all of it from the first one on would grow without end.
    EditorAsk next = m_ask;
    next.offset = std::max<std::int64_t>(held, m_ask.offset);
    next.limit = stride;
    if (next != m_ask || !isAnswered())
        m_actions.ask(std::move(next));
}

void MomentsFaceModel::watchMidnight() {
    const EditorDate now = m_actions.today ? m_actions.today() : std::chrono::system_clock::now();
    const QDate day = today();
    if (std::exchange(m_day, day) != day) {
        m_grid.turnDay();
        Q_EMIT changed();
    }
    const qint64 left = DateWords::local(now).msecsTo(day.addDays(1).startOfDay());
    m_midnight.start(std::clamp<std::chrono::milliseconds>(std::chrono::milliseconds(left + 1), 1ms,
                                                           longestSleep));
}

std::optional<std::int64_t> MomentsFaceModel::count() const {
    return TypeShelf::recordCount(EditorKind::moment, *m_answer, m_pages.momentCount());
}

QString MomentsFaceModel::heading() const {
    return m_grid.count() > 0 ? MomentWords::heading(m_grid.dayOf(0), today()) : title();
}

QString MomentsFaceModel::subheading() const {
    return MomentWords::subheading(count());
}

QString MomentsFaceModel::emptyWords() const {
    return m_held.size() > 0 ? QString() : MomentWords::empty(m_answer->state, count());
}

bool MomentsFaceModel::isFailing() const {
    return std::holds_alternative<Case::Failed>(m_answer->state) ||
           std::holds_alternative<Case::Warming>(m_answer->state);
}

bool MomentsFaceModel::isReading() const {
    return std::holds_alternative<Case::Pending>(m_answer->state);
}

QString MomentsFaceModel::strip() const {
    return m_held.size() > 0 && isFailing() ? MomentWords::empty(m_answer->state, count())
                                            : QString();
}

} // namespace wendlow

#include "moc_MomentsFaceModel.cpp"
