#include "Memories/MemoryLines.h"

#include "Floor/RowText.h"
#include "Floor/TextMatch.h"
#include "Memories/EditorDayFormat.h"
#include "Say.h"

#include <string_view>
#include <unordered_map>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

constexpr std::string_view memoryPrefix = "m:";
constexpr int passageRadius = 44;

/// The whole memory. Where nobody has given it a title, its first line is that, and stands once.
std::string wordsOf(const MemoryLine& line) {
    const std::string& body = line.detail->body;
    if (body.empty() || body.starts_with(line.title))
        return body.empty() ? line.title : body;
    return line.title + "\n\n" + body;
}

} // namespace

MemoryLine MemoryLine::of(const EditorMemoryHit& hit) {
    MemoryLine line;
    line.id = std::string(memoryPrefix) + hit.memory.id;
    line.title = hit.memory.title;
    line.scopeID = hit.scopeID;
    line.day = hit.memory.day;
    return line;
}

MemoryLine MemoryLine::headOf(std::string id, std::string title, std::size_t count) {
    MemoryLine line;
    line.id = std::move(id);
    line.head = true;
    line.title = std::move(title);
    line.count = count;
    return line;
}

std::vector<std::pair<std::string, std::string>>
MemoryLine::orderedFilters(const EditorMemory& memory, const std::vector<std::string>& keyOrder) {
    std::vector<std::pair<std::string, std::string>> ordered;
    auto rest = memory.filters;
    for (const std::string& key : keyOrder)
        if (auto found = rest.extract(key))
            ordered.emplace_back(found.key(), std::move(found.mapped()));
    ordered.insert(ordered.end(), rest.begin(), rest.end());
    return ordered;
}

void MemoryLine::unfold(const EditorMemoryHit& hit, const std::vector<std::string>& keyOrder) {
    open = true;
    facts = hit.scopeID;
    for (const auto& [key, value] : orderedFilters(hit.memory, keyOrder))
        facts += fmt::format(" · {} {}", key, value);
}

std::string_view MemoryLine::memoryID() const {
    return std::string_view(id).substr(memoryPrefix.size());
}

void MemoryLines::fill(MemoryLine& line, const MemoryLine* before, const MemoryDetails& details) {
    if (line.head)
        return;
    const auto known = details.find(line.memoryID());
    const bool asked = known != details.end();
    if (asked && known->second)
        line.detail = known->second;
    else if (before != nullptr)
        line.detail = before->detail;
    line.stale = line.detail && !(asked && known->second);
    line.missing = asked && !line.detail;
}

void MemoryLines::show(std::vector<MemoryLine> lines, const MemoryDetails& details,
                       const std::string& term) {
    std::unordered_map<std::string_view, const MemoryLine*> before;
    for (const MemoryLine& line : rows())
        if (line.detail)
            before.emplace(line.id, &line);
    for (MemoryLine& line : lines) {
        const auto kept = before.find(line.id);
        fill(line, kept == before.end() ? nullptr : kept->second, details);
    }
    const bool remark = std::exchange(m_term, term) != term;
    take(std::move(lines));
    m_known = details.size();
    m_unknown.clear();
    noteUnknown(0);
    if (remark && !rows().empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1),
                           {TitleMarkupRole, SublineRole, SublineMarkupRole, WhyRole, BodyRole});
}

void MemoryLines::noteUnknown(int from) {
    for (int at = from; at < rowCount(); ++at)
        if (const MemoryLine& line = row(at); !line.head && (!line.detail || line.stale))
            m_unknown.push_back(at);
}

void MemoryLines::append(std::vector<MemoryLine> lines, const MemoryDetails& details) {
    for (MemoryLine& line : lines)
        fill(line, nullptr, details);
    const int from = rowCount();
    KeyedListModel::append(std::move(lines));
    noteUnknown(from);
}

void MemoryLines::change(int index, MemoryLine line, const MemoryDetails& details) {
    fill(line, &row(index), details);
    KeyedListModel::change(index, std::move(line));
}

const MemoryLine* MemoryLines::known(int index) const {
    return holds(index) && row(index).detail ? &row(index) : nullptr;
}

QString MemoryLines::textOf(int index) const {
    const MemoryLine* const line = known(index);
    return line != nullptr ? RowText::plain(wordsOf(*line)) : QString();
}

QString MemoryLines::textWithWhy(int index) const {
    const MemoryLine* const line = known(index);
    if (line == nullptr || line->detail->why.empty())
        return textOf(index);
    return RowText::plain(wordsOf(*line) + "\n\n") + say("Why: {}", line->detail->why);
}

QString MemoryLines::idOf(int index) const {
    return holds(index) && !row(index).head ? RowText::plain(row(index).memoryID()) : QString();
}

/// Nothing is to be said of it that it does not show.
bool MemoryLines::isUpToDate(const MemoryLine& line, const MemoryDetails& details) {
    return line.head || (!details.contains(line.memoryID()) && !line.missing &&
                         line.stale == line.detail.has_value());
}

void MemoryLines::learn(const MemoryDetails& details) {
    // Details go only all at once. Otherwise a long list would be looked through for each few.
    if (details.size() < m_known) {
        m_unknown.clear();
        for (int at = 0; at < rowCount(); ++at)
            m_unknown.push_back(at);
    }
    m_known = details.size();
    std::erase_if(m_unknown, [&](int at) {
        if (isUpToDate(row(at), details))
            return row(at).head;
        MemoryLine line = row(at);
        fill(line, &row(at), details);
        const bool isKnown = line.head || (line.detail && !line.stale);
        KeyedListModel::change(at, std::move(line));
        return isKnown;
    });
}

/// What the memory is for, or the place where a search's words stand when the title has none.
std::string MemoryLines::subline(const MemoryLine& line) const {
    if (!line.detail)
        return {};
    const auto& [id, why, body] = *line.detail;
    if (!TextMatch::passage(m_term, line.title, passageRadius))
        for (const std::string* const text : {&why, &body})
            if (auto passage = TextMatch::passage(m_term, *text, passageRadius))
                return *std::move(passage);
    if (!why.empty())
        return why;
    return body.empty() ? line.scopeID : body;
}

QVariant MemoryLines::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const MemoryLine& here = row(index.row());
    switch (role) {
    case HeadRole:
        return here.head;
    case Qt::DisplayRole:
    case TitleRole:
        return RowText::line(here.title);
    case TitleMarkupRole:
        return RowText::markedLine(here.title, m_term);
    case SublineRole:
        return RowText::line(subline(here));
    case SublineMarkupRole:
        return RowText::markedLine(subline(here), m_term);
    case DayRole:
        return here.head ? QString() : EditorDayFormat::shortDay(here.day, m_today());
    case CountRole:
        return here.head ? QString::number(here.count) : QString();
    case OpenRole:
        return here.open;
    case LastRole:
        return here.lastOfGroup;
    case TipRole:
        return RowText::tip(here.title);
    case FactsRole:
        return RowText::line(here.facts);
    case WhyRole:
        return here.open && here.detail ? RowText::markedText(here.detail->why, m_term) : QString();
    case WhyTextRole:
        return here.open && here.detail ? RowText::plain(here.detail->why) : QString();
    case BodyTextRole:
        return here.open && here.detail ? RowText::plain(here.detail->body) : QString();
    case BodyRole:
        return here.open && here.detail ? RowText::markedText(here.detail->body, m_term)
                                        : QString();
    case KnownRole:
        return here.detail.has_value();
    case StaleRole:
        return here.stale;
    case MissingRole:
        return here.missing;
    default:
        return {};
    }
}

QHash<int, QByteArray> MemoryLines::roleNames() const {
    return {
        {HeadRole, "head"},       {TitleRole, "title"},       {TitleMarkupRole, "titleMarkup"},
        {SublineRole, "subline"}, {DayRole, "day"},           {SublineMarkupRole, "sublineMarkup"},
        {CountRole, "count"},     {OpenRole, "open"},         {LastRole, "last"},
        {TipRole, "tip"},         {WhyRole, "why"},           {BodyRole, "body"},
        {WhyTextRole, "whyText"}, {BodyTextRole, "bodyText"}, {FactsRole, "facts"},
        {KnownRole, "known"},     {StaleRole, "stale"},       {MissingRole, "missing"}};
}

} // namespace wendlow

#include "moc_MemoryLines.cpp"
