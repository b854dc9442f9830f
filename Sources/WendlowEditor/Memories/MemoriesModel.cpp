#include "Memories/MemoriesModel.h"

#include "Floor/EditorWords.h"
#include "Floor/RowText.h"
#include "Say.h"

#include <algorithm>
#include <array>
#include <utility>

namespace wendlow {

namespace {

struct SortWord {
    EditorMemorySort sort;
    const char* word;
};

constexpr std::array sortWords{
    SortWord{EditorMemorySort::newest, sayLater("newest")},
    SortWord{EditorMemorySort::oldest, sayLater("oldest")},
    SortWord{EditorMemorySort::relevance, sayLater("relevance")},
};

} // namespace

MemoriesModel::MemoriesModel(ChangeAsk changeAsk, RequestDetails requestDetails,
                             MemoryLines::Today today)
    : m_changeAsk(changeAsk), m_requestDetails(std::move(requestDetails)),
      m_lines(std::move(today)), m_filters(std::move(changeAsk)) {}

std::int64_t MemoriesModel::limitFor(std::int64_t visibleCount) {
    return std::max(visibleCount + pageStep, EditorAsk::page);
}

void MemoriesModel::show(const EditorAsk& ask, const SharedAnswer& answer,
                         const MemoryDetails& details, const std::string& term) {
    const bool other = answer->ask && !(m_answer->ask && m_answer->ask->sameQuery(*answer->ask));
    const bool askIsNew = m_ask != ask;
    const bool answerIsNew = m_answer != answer;
    m_ask = ask;
    m_answer = answer;
    m_details = &details;
    // Another question begins on its first page.
    if (other) {
        m_visibleCount = pageStep;
        m_waitsForMore = false;
        m_goesToEnd = false;
    }
    if (std::exchange(m_term, term) != term)
        m_built = {};
    if (answerIsNew || askIsNew)
        m_filters.show(m_ask, *m_answer);
    rebuild();
    if (!m_openID.empty() && !details.contains(m_openID))
        m_requestDetails({m_openID});
    if (other)
        Q_EMIT turned();
    if (m_goesToEnd && m_answer->ready() && m_answer->ask->limit > m_answer->total)
        showEnd();
    // Whoever scrolls faster than the store answers has the last row in sight by now, and it does
    // not appear a second time.
    if (m_waitsForMore && std::ssize(m_answer->rows) > m_visibleCount)
        rowAppeared(m_lines.rowCount() - 1);
}

void MemoriesModel::startAfresh() {
    m_visibleCount = pageStep;
    m_openID.clear();
    m_appeared.clear();
    m_waitsForMore = false;
    m_goesToEnd = false;
    m_built = {};
    m_filters.startAfresh();
}

MemoryLine MemoriesModel::line(std::size_t at) const {
    const EditorMemoryHit& hit = m_answer->rows[at];
    MemoryLine line = MemoryLine::of(hit);
    if (hit.memory.id == m_openID)
        line.unfold(hit, names(m_answer->filterKeyCounts));
    return line;
}

void MemoriesModel::rebuild() {
    if (!goOn()) {
        const EditorRows rows = m_answer->rows.first(static_cast<std::size_t>(m_visibleCount));
        std::vector<MemoryLine> lines;
        lines.reserve(rows.size());
        for (std::size_t at = 0; at < rows.size(); ++at)
            lines.push_back(line(at));
        m_lines.show(std::move(lines), *m_details, m_term);
        m_built = rows;
    }
    m_unfoldedID = m_openID;
    Q_EMIT changed();
}

/// Where the rows go on from those that the lines show, as they do page by page, there may be
/// thousands, of which only the new ones and the open ones are looked at.
bool MemoriesModel::goOn() {
    const EditorRows rows = m_answer->rows.first(static_cast<std::size_t>(m_visibleCount));
    if (m_built.empty() || !rows.beginWith(m_built))
        return false;
    m_lines.learn(*m_details);
    for (const std::string& id : {m_unfoldedID, m_openID})
        refold(id);
    std::vector<MemoryLine> lines;
    for (std::size_t at = m_built.size(); at < rows.size(); ++at)
        lines.push_back(line(at));
    m_lines.append(std::move(lines), *m_details);
    m_built = rows;
    return true;
}

void MemoriesModel::refold(const std::string& memoryID) {
    if (memoryID.empty())
        return;
    for (std::size_t at = 0; at < m_built.size(); ++at)
        if (m_built[at].memory.id == memoryID)
            m_lines.change(static_cast<int>(at), line(at), *m_details);
}

void MemoriesModel::setVisibleCount(std::int64_t count) {
    if (std::exchange(m_visibleCount, count) == count)
        return;
    rebuild();
    EditorAsk next = m_ask;
    next.limit = limitFor(count);
    if (next != m_ask)
        m_changeAsk(std::move(next));
}

void MemoriesModel::rowAppeared(int index) {
    if (m_appeared.empty())
        QMetaObject::invokeMethod(this, &MemoriesModel::serveAppeared, Qt::QueuedConnection);
    m_appeared.insert(index);
}

void MemoriesModel::serveAppeared() {
    const auto appeared = std::exchange(m_appeared, {});
    std::vector<std::string> ids;
    bool last = false;
    for (const int index : appeared) {
        if (!m_lines.holds(index))
            continue;
        ids.emplace_back(m_lines.row(index).memoryID());
        last = last || index + 1 == m_lines.rowCount();
    }
    if (m_showSubline)
        m_requestDetails(ids);
    // What is shown while another question is asked is not read on.
    if (m_answer->ask && !m_answer->ask->sameQuery(m_ask))
        return;
    const bool more = std::ssize(m_answer->rows) > m_visibleCount;
    m_waitsForMore = last && !more;
    if (last && more)
        setVisibleCount(m_visibleCount + pageStep);
}

void MemoriesModel::goToEnd() {
    if (!m_answer->ask || !m_answer->ask->sameQuery(m_ask))
        return;
    const auto held = std::ssize(m_answer->rows);
    m_goesToEnd = held < m_answer->total;
    if (m_goesToEnd)
        setVisibleCount(m_answer->total);
    else
        showEnd();
}

void MemoriesModel::showEnd() {
    m_goesToEnd = false;
    if (std::ssize(m_answer->rows) > m_visibleCount)
        setVisibleCount(std::ssize(m_answer->rows));
    Q_EMIT revealed(m_lines.rowCount() - 1);
}

void MemoriesModel::sortBy(const QString& key) {
    const auto sort = editorMemorySort(key.toStdString());
    if (!sort || m_ask.sort == sort)
        return;
    EditorAsk next = m_ask;
    next.sort = sort;
    m_changeAsk(std::move(next));
}

void MemoriesModel::toggle(int index) {
    if (!m_lines.holds(index))
        return;
    const MemoryLine line = m_lines.row(index);
    m_openID = std::string(line.open ? std::string_view() : line.memoryID());
    rebuild();
    if (!m_openID.empty())
        m_requestDetails({m_openID});
}

bool MemoriesModel::closeOpen() {
    if (std::exchange(m_openID, {}).empty())
        return false;
    rebuild();
    return true;
}

bool MemoriesModel::reveal(const std::string& memoryID) {
    const auto& rows = m_answer->rows;
    const auto found = std::ranges::find(
        rows, memoryID, [](const EditorMemoryHit& hit) -> const auto& { return hit.memory.id; });
    if (found == rows.end())
        return false;
    const auto index = found - rows.begin();
    m_openID = memoryID;
    // Whole pages, as scrolling there would have shown.
    const std::int64_t pages = index / pageStep + 1;
    if (pages * pageStep > m_visibleCount)
        setVisibleCount(pages * pageStep);
    else
        rebuild();
    m_requestDetails({memoryID});
    Q_EMIT revealed(static_cast<int>(index));
    return true;
}

/// Narrowed by a term, or cut by what is picked: then the whole slice stands beside what is left.
QString MemoriesModel::countLine() const {
    // An answer that failed has counted nothing.
    if (!m_answer->ask || !EditorWords::strip(m_answer->state).words.isEmpty())
        return {};
    if (m_answer->narrowed || m_answer->ask->hasChips())
        return say("{} of {}", m_answer->total, m_answer->sliceTotal);
    return say.plural(m_answer->total, "{} memory", "{} memories", m_answer->total);
}

QVariantList MemoriesModel::sorts() const {
    QVariantList words;
    for (const auto& [sort, word] : sortWords)
        words.append(
            QVariantMap{{QStringLiteral("key"), RowText::plain(text(sort))},
                        {QStringLiteral("word"), say(word)},
                        {QStringLiteral("picked"), m_ask.sort.value_or(m_answer->order) == sort}});
    return words;
}

QString MemoriesModel::emptyWords() const {
    if (m_answer->ready() && m_answer->rows.empty() && m_answer->ask &&
        !m_answer->ask->term.empty())
        return say("Nothing matches “{}”", RowText::line(m_answer->ask->term));
    return EditorWords::empty(*m_answer, !m_answer->rows.empty());
}

bool MemoriesModel::reading() const {
    return std::holds_alternative<EditorAnswerStateCase::Pending>(m_answer->state);
}

} // namespace wendlow

#include "moc_MemoriesModel.cpp"
