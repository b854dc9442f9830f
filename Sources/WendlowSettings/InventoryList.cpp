#include "InventoryList.h"

#include "Say.h"

#include <QDateTime>

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

/// The lines of a long table before it is unfolded.
constexpr std::size_t first = 8;
/// A button that would bring no more lines than this takes about as much room as they do.
constexpr std::size_t spare = 2;

} // namespace

InventoryList::InventoryList(InventoryWords words, QObject* parent)
    : QAbstractListModel(parent), m_words(std::move(words)) {}

bool InventoryList::isLong(std::size_t lines) const {
    return lines > first + spare;
}

int InventoryList::shownOf(std::size_t lines) const {
    return static_cast<int>(m_whole || !isLong(lines) ? lines : first);
}

void InventoryList::show(std::vector<InventoryEntry> entries) {
    const std::size_t totalBefore = m_entries.size();
    const int shown = shownOf(entries.size());
    const auto oldEnd = m_entries.begin() + m_shown;
    const auto newEnd = entries.begin() + shown;
    const auto [oldDiffers, newDiffers] =
        std::mismatch(m_entries.begin(), oldEnd, entries.begin(), newEnd);
    const auto sameAtEnd =
        std::mismatch(std::make_reverse_iterator(oldEnd), std::make_reverse_iterator(oldDiffers),
                      std::make_reverse_iterator(newEnd), std::make_reverse_iterator(newDiffers))
            .first -
        std::make_reverse_iterator(oldEnd);

    // In between, lines change in place as far as both go; what one has over is put in or taken
    // out.
    const int begin = static_cast<int>(oldDiffers - m_entries.begin());
    const int changed = std::min(m_shown, shown) - begin - static_cast<int>(sameAtEnd);
    std::copy_n(newDiffers, changed, oldDiffers);
    if (changed > 0)
        Q_EMIT dataChanged(index(begin), index(begin + changed - 1));
    const int over = shown - m_shown;
    const int place = begin + changed;
    if (over > 0)
        beginInsertRows({}, place, place + over - 1);
    else if (over < 0)
        beginRemoveRows({}, place, place - over - 1);
    m_entries = std::move(entries);
    m_shown = shown;
    if (over > 0)
        endInsertRows();
    else if (over < 0)
        endRemoveRows();
    refreshDays();
    if (m_entries.size() != totalBefore)
        Q_EMIT lengthChanged();
}

void InventoryList::refreshDays() {
    const QDate now = today();
    const bool otherDay = std::exchange(m_wordedOn, now) != now;
    if (otherDay && m_shown > 0)
        Q_EMIT dataChanged(index(0), index(m_shown - 1), {DayRole});
}

QDate InventoryList::today() const {
    using std::chrono::floor;
    using std::chrono::seconds;
    return QDateTime::fromSecsSinceEpoch(floor<seconds>(m_words.now().time_since_epoch()).count())
        .date();
}

void InventoryList::toggle() {
    setWhole(!m_whole);
}

void InventoryList::fold() {
    setWhole(false);
}

void InventoryList::setWhole(bool whole) {
    if (m_whole == whole)
        return;
    m_whole = whole;
    const int shown = shownOf(m_entries.size());
    if (shown > m_shown) {
        beginInsertRows({}, m_shown, shown - 1);
        m_shown = shown;
        endInsertRows();
    } else if (shown < m_shown) {
        beginRemoveRows({}, shown, m_shown - 1);
        m_shown = shown;
        endRemoveRows();
    }
    Q_EMIT lengthChanged();
}

QString InventoryList::toggleWords() const {
    if (!isLong(m_entries.size()))
        return {};
    return m_whole ? QString::fromStdString(say("Show fewer")) : m_words.showAll(m_entries.size());
}

int InventoryList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_shown;
}

QVariant InventoryList::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const InventoryEntry& entry = m_entries[static_cast<std::size_t>(index.row())];
    switch (role) {
    case PathRole:
        return QString::fromStdString(entry.path);
    case Qt::DisplayRole:
    case ShownPathRole:
        return m_words.path(entry);
    case FactsRole:
        return m_words.facts(entry);
    case FactsHintRole:
        return m_words.factsHint(entry);
    case DayRole:
        return m_words.day(entry);
    case DayHintRole:
        return m_words.dayHint(entry);
    case SpokenRole:
        return m_words.spoken(entry);
    default:
        return {};
    }
}

QHash<int, QByteArray> InventoryList::roleNames() const {
    return {{PathRole, "path"},    {ShownPathRole, "shownPath"},
            {FactsRole, "facts"},  {FactsHintRole, "factsHint"},
            {DayRole, "day"},      {DayHintRole, "dayHint"},
            {SpokenRole, "spoken"}};
}

} // namespace wendlow

#include "moc_InventoryList.cpp"
