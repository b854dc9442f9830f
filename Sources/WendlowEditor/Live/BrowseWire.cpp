#include "Live/BrowseWire.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

struct Printed {
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(bool flag) const { return flag ? "true" : "false"; }
    std::string operator()(double number) const {
        const bool isWhole = std::abs(number) < 1e15 && std::trunc(number) == number;
        return isWhole ? std::to_string(static_cast<std::int64_t>(number))
                       : fmt::format("{}", number);
    }
};

/// Tells values apart that print alike.
struct Spelled {
    std::string operator()(const std::string& text) const { return "s:" + text; }
    std::string operator()(bool flag) const { return fmt::format("b:{}", flag); }
    std::string operator()(double number) const { return fmt::format("n:{}", number); }
};

template<class Text> std::string as(const FilterValue& value) {
    return std::visit(Text(), static_cast<const FilterValue::variant&>(value));
}

EditorMemoryHit hit(const TextBrowseRow& row) {
    EditorMemoryHit made{
        .memory = {.id = row.id, .type = row.type, .title = row.title, .day = editorDate(row.at)},
        .scopeID = row.scope,
        .score = row.score};
    for (const auto& [key, value] : row.filters)
        made.memory.filters.insert_or_assign(key, BrowseWire::printed(value));
    return made;
}

/// Whether `filters` are what these pairs print as. Pairs whose keys do not ascend are not looked
/// through: they may repeat a key.
bool printAs(const std::vector<FilterPair>& pairs,
             const std::map<std::string, std::string>& filters) {
    if (pairs.size() != filters.size())
        return false;
    auto filter = filters.begin();
    for (const auto& [key, value] : pairs) {
        const auto* const text =
            std::get_if<std::string>(&static_cast<const FilterValue::variant&>(value));
        if (filter->first != key ||
            filter->second != (text != nullptr ? *text : BrowseWire::printed(value)))
            return false;
        ++filter;
    }
    return true;
}

bool isSame(const TextBrowseRow& row, const EditorMemoryHit& hit) {
    const EditorMemory& memory = hit.memory;
    return row.id == memory.id && row.title == memory.title && row.scope == hit.scopeID &&
           row.type == memory.type && editorDate(row.at) == memory.day && row.score == hit.score &&
           printAs(row.filters, memory.filters);
}

bool isSame(const TextBrowseRow& row, const EditorMoment& moment) {
    static const std::vector<std::string> none;
    return row.id == moment.id && row.title == moment.title && editorDate(row.at) == moment.at &&
           row.framed == moment.framed && row.score == moment.score && row.app == moment.bundle &&
           row.abstract == moment.abstract && row.passage == moment.passage &&
           row.sessionTool == moment.sessionTool && row.fileCount.value_or(0) == moment.fileCount &&
           (row.files ? *row.files : none) == moment.files;
}

EditorMoment moment(const TextBrowseRow& row) {
    EditorMoment made{.id = row.id, .at = editorDate(row.at)};
    made.title = row.title;
    made.bundle = row.app;
    made.abstract = row.abstract;
    made.passage = row.passage;
    made.score = row.score;
    made.files = row.files.value_or(std::vector<std::string>());
    made.fileCount = row.fileCount.value_or(0);
    made.framed = row.framed;
    made.sessionTool = row.sessionTool;
    return made;
}

/// What says what was held is taken from there.
template<class Row>
SharedRows<Row> goingOn(const std::vector<TextBrowseRow>& wire, const SharedRows<Row>& held,
                        Row (*made)(const TextBrowseRow&)) {
    std::size_t same = 0;
    while (same < std::min(wire.size(), held.size()) && isSame(wire[same], held[same]))
        ++same;
    SharedRows<Row> rows = held.first(same);
    for (std::size_t at = same; at < wire.size(); ++at)
        rows.push_back(made(wire[at]));
    return rows;
}

/// One row for each printed value: wire values that print alike are one.
std::vector<EditorCount> folded(const std::vector<FilterValueCount>& values) {
    std::vector<EditorCount> rows;
    std::map<std::string, std::size_t> places;
    for (const auto& [value, count] : values) {
        const auto [place, isNew] = places.emplace(BrowseWire::printed(value), rows.size());
        if (isNew)
            rows.push_back({.name = place->first});
        rows[place->second].count += count;
        rows[place->second].members.push_back(value);
    }
    sortCensus(rows);
    return rows;
}

} // namespace

std::vector<FilterPair> BrowseWire::filters(const std::map<std::string, EditorPicks>& picks) {
    std::vector<FilterPair> pairs;
    for (const auto& [key, values] : picks) {
        std::vector<EditorPick> sorted(values.begin(), values.end());
        std::ranges::stable_sort(sorted, {}, &EditorPick::name);
        for (EditorPick& pick : sorted) {
            std::ranges::sort(pick.members, {}, as<Spelled>);
            for (FilterValue& member : pick.members)
                pairs.push_back({.key = key, .value = std::move(member)});
        }
    }
    return pairs;
}

ReadCase::TextBrowse BrowseWire::request(const EditorAsk& ask) {
    ReadCase::TextBrowse browse;
    if (!ask.term.empty())
        browse.term = ask.term;
    browse.type = ask.type;
    browse.scopes.assign(ask.scopes.begin(), ask.scopes.end());
    browse.limit = std::max<std::int64_t>(ask.limit, 1);
    browse.kind = text(ask.kind);
    if (ask.sort)
        browse.order = text(*ask.sort);
    browse.filters = filters(ask.filters);
    browse.offset = std::max<std::int64_t>(ask.offset, 0);
    return browse;
}

std::string BrowseWire::printed(const FilterValue& value) {
    return as<Printed>(value);
}

std::vector<EditorCount> BrowseWire::counts(const std::vector<NameCount>& rows) {
    std::vector<EditorCount> counts;
    counts.reserve(rows.size());
    for (const auto& [name, count] : rows)
        counts.push_back({.name = name, .count = count});
    return counts;
}

EditorAnswer BrowseWire::settled(const TextBrowseAnswer& answer, const EditorAsk& ask,
                                 const EditorRows& held, const EditorMoments& heldMoments) {
    EditorAnswer made{.ask = ask, .state = EditorAnswerStateCase::Settled{}};
    made.narrowed = answer.narrowed;
    made.total = answer.total;
    made.rows = goingOn(answer.rows, held, hit);
    if (ask.kind == EditorKind::moment)
        made.moments = goingOn(answer.rows, heldMoments, moment);
    made.order = editorMemorySort(answer.order.value_or("")).value_or(EditorMemorySort::newest);
    made.typeCounts = counts(answer.byType);
    made.scopeCounts = counts(answer.byScope);
    for (const FilterKeyCensus& census : answer.byFilter) {
        made.filterKeyCounts.push_back({.name = census.key, .count = census.count});
        made.filterValueCounts.insert_or_assign(census.key, folded(census.values));
    }
    for (const KindCount& row : answer.byKind)
        if (const auto kind = editorKind(row.kind))
            made.kindCounts[*kind] = row.count;
    return made;
}

} // namespace wendlow
