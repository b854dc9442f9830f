#include "Search/SearchPage.h"

#include "DateWords.h"
#include "Floor/TextMatch.h"
#include "Model/EditorRail.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

constexpr int passageRadius = 44; ///< characters to either side of what was found
constexpr std::string_view between = " · ";
constexpr std::string_view memoryPrefix = "memory:";
constexpr std::string_view rulePrefix = "rule:";

std::string joined(const std::vector<std::string>& parts, std::string_view separator) {
    std::string line;
    for (const std::string& part : parts) {
        if (part.empty())
            continue;
        if (!line.empty())
            line.append(separator);
        line.append(part);
    }
    return line;
}

bool standsIn(std::string_view term, std::string_view text) {
    return TextMatch::passage(term, text, passageRadius).has_value();
}

SearchHit memoryHit(const EditorMemoryHit& hit, const SearchPage::Found& found) {
    return {.id = std::string(memoryPrefix) + hit.memory.id,
            .destination = SearchDestination::Memory{hit.memory.type},
            .title = hit.memory.title,
            .subtitle = SearchPage::memorySubtitle(hit, found.term, found.details),
            .symbol = "doc.text.fill"};
}

SearchHit ruleHit(const EditorMemoryHit& hit, const SearchPage::Found& found) {
    return {.id = std::string(rulePrefix) + hit.memory.id,
            .destination = SearchDestination::Rule{hit.scopeID},
            .title = hit.memory.title,
            .subtitle = SearchPage::memorySubtitle(hit, found.term, found.details),
            .symbol = "scroll.fill"};
}

bool speaksOf(const EditorMeeting& meeting, std::string_view term) {
    const auto holds = [term](std::string_view text) { return TextMatch::contains(text, term); };
    return holds(meeting.title.value_or("")) || holds(meeting.day) || holds(meeting.app()) ||
           std::ranges::any_of(meeting.speakers, holds);
}

/// As moments say theirs, where the daemon has worded it as a date.
std::string dayOf(const EditorMeeting& meeting) {
    const QString text = QString::fromStdString(meeting.day + "T" + meeting.from);
    const QDateTime begin = QDateTime::fromString(text, QStringLiteral("yyyy-MM-ddTHH:mm"));
    if (!begin.isValid())
        return meeting.day;
    const auto seconds = static_cast<double>(begin.toSecsSinceEpoch());
    return DateWords::dateAndTime(editorDate(seconds)).toStdString();
}

SearchHit meetingHit(const EditorMeeting& meeting) {
    return {.id = "meeting:" + meeting.id,
            .destination = SearchDestination::Meeting{meeting.id},
            .title = meeting.title.value_or(
                fmt::format("{} · {}–{}", meeting.day, meeting.from, meeting.to)),
            .subtitle =
                joined({dayOf(meeting), meeting.duration, joined(meeting.speakers, ", ")}, between),
            .symbol = "person.2.fill"};
}

SearchHit momentHit(const EditorMoment& moment, std::string_view term) {
    const std::string date = DateWords::dateAndTime(moment.at).toStdString();
    std::string subtitle = date;
    if (moment.passage)
        subtitle = *moment.passage;
    else if (!standsIn(term, moment.title))
        subtitle =
            TextMatch::passage(term, moment.abstract.value_or(""), passageRadius).value_or(date);
    return {.id = "moment:" + moment.id,
            .destination = SearchDestination::Moment{moment.id},
            .title = moment.title.empty() ? date : moment.title,
            .subtitle = std::move(subtitle),
            .symbol = "square.stack.3d.down.right"};
}

SearchHit modHit(const EditorInstalledMod& mod) {
    return {.id = "app:" + mod.scope + ":" + mod.slug,
            .destination = SearchDestination::Mod{mod.scope, mod.slug},
            .title = mod.slug,
            .subtitle = joined({mod.scope, mod.hint}, between),
            .symbol = "square.grid.2x2.fill"};
}

SearchHit scopeHit(const std::string& path) {
    return {.id = "scope:" + path,
            .destination = SearchDestination::Scope{path},
            .title = path,
            .subtitle = {},
            .symbol = "network"};
}

/// Adds the section of those of `things` that `wanted` takes, unless there are none. Only what is
/// shown becomes a row.
template<class Things, class Wanted, class Row>
void add(SearchSections& sections, std::string title, const Things& things, Wanted wanted,
         Row row) {
    SearchSection section{.title = std::move(title), .hits = {}};
    for (const auto& thing : things) {
        if (section.hits.size() == SearchPage::rowsShown)
            break;
        if (wanted(thing))
            section.hits.push_back(row(thing));
    }
    if (!section.hits.empty())
        sections.push_back(std::move(section));
}

std::string titleOf(EditorFace face) {
    return std::string(EditorFaces::title(face));
}

/// The types that have no face of their own, as they first appear.
std::vector<std::string_view> ordinaryTypes(const EditorMemoryHits& memories) {
    std::vector<std::string_view> types;
    for (const EditorMemoryHit& hit : memories)
        if (!RailCounts::isGoverned(hit.memory.type) &&
            std::ranges::find(types, hit.memory.type) == types.end())
            types.push_back(hit.memory.type);
    return types;
}

} // namespace

SearchSections SearchPage::build(const Found& found) {
    const std::string_view term = found.term;
    const auto holds = [term](std::string_view text) { return TextMatch::contains(text, term); };
    SearchSections sections;
    for (const std::string_view type : ordinaryTypes(found.memories))
        add(
            sections, TypeWords::pluralized(type), found.memories,
            [type](const EditorMemoryHit& hit) { return hit.memory.type == type; },
            [&](const EditorMemoryHit& hit) { return memoryHit(hit, found); });
    if (found.meetings)
        add(
            sections, titleOf(EditorFace::meetings), *found.meetings,
            [term](const EditorMeeting& meeting) { return speaksOf(meeting, term); }, meetingHit);
    add(
        sections, titleOf(EditorFace::moments), found.moments,
        [](const EditorMoment&) { return true; },
        [term](const EditorMoment& moment) { return momentHit(moment, term); });
    add(
        sections, titleOf(EditorFace::rules), found.memories,
        [](const EditorMemoryHit& hit) { return hit.memory.type == "rule"; },
        [&](const EditorMemoryHit& hit) { return ruleHit(hit, found); });
    if (found.mods != nullptr)
        add(
            sections, titleOf(EditorFace::mods), *found.mods,
            [&](const EditorInstalledMod& mod) {
                return holds(mod.slug) || holds(mod.hint) || holds(mod.scope);
            },
            modHit);
    add(sections, titleOf(EditorFace::scopes), found.scopePaths, holds, scopeHit);
    return sections;
}

std::string SearchPage::memorySubtitle(const EditorMemoryHit& hit, std::string_view term,
                                       const MemoryDetails& details) {
    std::string fallback = joined({TypeWords::single(hit.memory.type), hit.scopeID}, between);
    const auto detail = details.find(hit.memory.id);
    if (detail == details.end() || !detail->second || standsIn(term, hit.memory.title))
        return fallback;
    for (const std::string* const text : {&detail->second->why, &detail->second->body})
        if (auto passage = TextMatch::passage(term, *text, passageRadius))
            return *std::move(passage);
    return fallback;
}

bool SearchPage::isFoundHere(const SearchHit& hit) {
    using namespace SearchDestination;
    return std::holds_alternative<Meeting>(hit.destination) ||
           std::holds_alternative<Mod>(hit.destination) ||
           std::holds_alternative<Scope>(hit.destination);
}

std::string SearchPage::unfolded(const SearchHit& hit, const Found& found) {
    const auto with = [&hit](const std::vector<std::string>& more) {
        std::vector<std::string> parts{hit.title, hit.subtitle};
        parts.insert(parts.end(), more.begin(), more.end());
        return joined(parts, "\n");
    };
    if (const std::string rule = ruleOf(hit); !rule.empty()) {
        const auto detail = found.details.find(rule);
        if (detail != found.details.end() && detail->second)
            return joined({detail->second->body.starts_with(hit.title) ? "" : hit.title,
                           detail->second->body, detail->second->why},
                          "\n");
    }
    for (const EditorMoment& moment : found.moments)
        if (momentHit(moment, found.term).id == hit.id)
            return with(
                {moment.abstract.value_or(""), DateWords::dateAndTime(moment.at).toStdString()});
    return with({});
}

std::string SearchPage::memoryOf(const SearchHit& hit) {
    return hit.id.starts_with(memoryPrefix) ? hit.id.substr(memoryPrefix.size()) : std::string();
}

std::string SearchPage::ruleOf(const SearchHit& hit) {
    return hit.id.starts_with(rulePrefix) ? hit.id.substr(rulePrefix.size()) : std::string();
}

std::vector<const SearchHit*> SearchPage::flat(const SearchSections& sections) {
    std::vector<const SearchHit*> hits;
    for (const SearchSection& section : sections)
        for (const SearchHit& hit : section.hits)
            hits.push_back(&hit);
    return hits;
}

std::optional<std::size_t> SearchPage::moved(std::optional<std::size_t> selection, Move move,
                                             const SearchSections& sections) {
    const auto count = flat(sections).size();
    if (count == 0)
        return std::nullopt;
    if (!selection || *selection >= count)
        return 0;
    if (move == Move::up)
        return *selection == 0 ? 0 : *selection - 1;
    return std::min(*selection + 1, count - 1);
}

} // namespace wendlow
