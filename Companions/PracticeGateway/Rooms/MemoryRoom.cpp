#include "MemoryRoom.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include "DocumentCard.h"
#include "FilterText.h"
#include "PlainText.h"
#include "ScopeName.h"
#include "ScopePath.h"

namespace wendlow {
namespace {

using Filters = std::map<std::string, FilterValue>;

std::string firstLine(std::string_view text) {
    const std::string_view rest = PlainText::trimmed(text);
    return std::string(PlainText::trimmed(rest.substr(0, rest.find('\n'))));
}

std::vector<FilterPair> pairsOf(const Filters& filters) {
    std::vector<FilterPair> pairs;
    for (const auto& [key, value] : filters)
        pairs.push_back({key, value});
    return pairs;
}

Filters mapOf(const std::vector<FilterPair>& pairs) {
    Filters filters;
    for (const FilterPair& pair : pairs)
        filters[pair.key] = pair.value;
    return filters;
}

/// What forbids filing this memory, as a whole sentence.
std::optional<std::string> refusal(const Document& memory) {
    if (PlainText::trimmed(memory.body).empty())
        return "a memory needs a text; nothing was saved";
    if (memory.type.empty() || memory.type.contains('\n'))
        return "a memory needs a type of one line; nothing was saved";
    if (!ScopeName::isValid(memory.scope))
        return fmt::format("“{}” is not a scope: {}; nothing was saved", memory.scope,
                           ScopeName::form);
    if (std::ranges::any_of(memory.filters, [](const auto& pair) { return pair.key.empty(); }))
        return "a filter needs a key; nothing was saved";
    return std::nullopt;
}

/// The places in a memory that a patch may name.
std::string* field(Document& memory, std::string_view name) {
    if (name == "text")
        return &memory.body;
    if (name == "why")
        return &memory.why;
    return name == "title" ? &memory.title : nullptr;
}

void replace(std::string& text, const NotesCase::Patch& patch) {
    for (auto at = text.find(patch.find); at != std::string::npos;
         at = text.find(patch.find, at + patch.replace.size())) {
        text.replace(at, patch.find.size(), patch.replace);
        if (!patch.replaceAll)
            return;
    }
}

} // namespace

std::string_view MemoryRoom::schema() {
    return "CREATE VIEW IF NOT EXISTS note(id, path) AS "
           "SELECT number, scope FROM documents WHERE kind = 0;";
}

MemoryRoom::MemoryRoom(DocumentStore& documents, Clock clock)
    : m_documents(documents), m_clock(std::move(clock)) {}

std::expected<Document, std::string> MemoryRoom::memory(std::string_view id) {
    auto found = m_documents.find(id);
    if (found && found->kind == DocumentKind::memory)
        return std::move(*found);
    return std::unexpected(fmt::format("no memory has the id “{}”; nothing was changed", id));
}

GatewayResponse MemoryRoom::save(Document memory) {
    if (!memory.titled)
        memory.title = firstLine(memory.body);
    if (const auto forbidden = refusal(memory))
        return AnswerCase::Failure{*forbidden};
    m_documents.put(memory);
    return AnswerCase::NoteID{memory.id};
}

GatewayResponse MemoryRoom::answer(const ReadCase::Grab& request) {
    const auto found = m_documents.find(request.id);
    return AnswerCase::Thing{found ? std::optional(DocumentCard::whole(*found)) : std::nullopt};
}

GatewayResponse MemoryRoom::answer(const ReadCase::GetByType& request) {
    // An AI tool's session takes this whole: more than it could read is of no use to it.
    constexpr std::size_t mostCards = 200;
    const std::string scope = request.path.value_or(std::string(ScopePath::root));
    const Filters wanted = request.filters.value_or(Filters{});
    const std::vector<FilterPair> wantedPairs = pairsOf(wanted);
    Statement newest = m_documents.database().prepare(
        "SELECT number, scope, filters FROM documents WHERE kind = 0 AND type = ? "
        "ORDER BY at DESC, number DESC");
    newest.bind(request.type);
    AnswerCase::KindCards cards{scope, {}};
    while (cards.cards.size() < mostCards && newest.step()) {
        const Filters filters = mapOf(FilterText::read(newest.view(2)));
        const bool matches = std::ranges::all_of(wanted, [&](const auto& pair) {
            const auto has = filters.find(pair.first);
            return has != filters.end() && has->second == pair.second;
        });
        if (matches && ScopePath::inScope(newest.view(1), scope))
            cards.cards.push_back(DocumentCard::brief(*m_documents.find(newest.integer(0))));
    }
    return cards;
}

GatewayResponse MemoryRoom::answer(const ReadCase::ListTypes& request) {
    const std::string scope = request.scope.value_or(std::string(ScopePath::root));
    const DocumentFacets& facets = m_documents.facets();
    std::map<std::string, KindCount> types;
    std::map<std::string, std::map<std::string, std::int64_t>> keys;
    for (const DocumentFacets::Row& row : facets.rows()) {
        if (!row.present || row.kind != DocumentKind::memory ||
            !ScopePath::inScope(facets.scopes().text(row.scope), scope))
            continue;
        const std::string& type = facets.types().text(row.type);
        ++types[type].count;
        for (const std::uint32_t pair : facets.pairsOf(row.filters))
            ++keys[type][facets.keys().text(facets.pairs()[pair].key)];
    }
    AnswerCase::KindTypes answer{scope, {}};
    for (auto& [type, count] : types) {
        count.kind = type;
        count.filters.emplace();
        for (const auto& [key, carriers] : keys[type])
            count.filters->push_back({key, carriers});
        answer.types.push_back(std::move(count));
    }
    std::ranges::stable_sort(answer.types, std::ranges::greater{}, &KindCount::count);
    return answer;
}

GatewayResponse MemoryRoom::answer(const NotesCase::Write& request) {
    Document memory{.id = m_documents.nextMemoryID(),
                    .type = std::string(PlainText::trimmed(request.type)),
                    .scope = request.path,
                    .at = secondsOf(m_clock()),
                    .title = request.title.value_or(""),
                    .titled = request.title.has_value(),
                    .why = request.why,
                    .body = request.text,
                    .filters = pairsOf(request.filters.value_or(Filters{})),
                    .writer = request.writer,
                    .session = request.session,
                    .subagent = request.subagent};
    return save(std::move(memory));
}

GatewayResponse MemoryRoom::answer(const NotesCase::Delete& request) {
    const auto found = memory(request.id);
    if (!found)
        return AnswerCase::Failure{found.error()};
    m_documents.remove(found->id);
    return AnswerCase::Text{fmt::format("Deleted {}.", found->id)};
}

GatewayResponse MemoryRoom::answer(const NotesCase::Edit& request) {
    auto found = memory(request.id);
    if (!found)
        return AnswerCase::Failure{found.error()};
    found->body = request.text.value_or(found->body);
    found->why = request.why.value_or(found->why);
    found->type = PlainText::trimmed(request.type.value_or(found->type));
    found->scope = request.path.value_or(found->scope);
    if (request.filters)
        found->filters = pairsOf(*request.filters);
    if (request.title) {
        found->title = *request.title;
        found->titled = true;
    }
    return save(std::move(*found));
}

GatewayResponse MemoryRoom::answer(const NotesCase::Patch& request) {
    auto found = memory(request.id);
    if (!found)
        return AnswerCase::Failure{found.error()};
    std::string* const text = field(*found, request.field);
    if (text == nullptr)
        return AnswerCase::Failure{fmt::format("“{}” is no field that can be patched; those are "
                                               "text, why and title; nothing was changed",
                                               request.field)};
    if (request.find.empty() || !text->contains(request.find))
        return AnswerCase::Failure{fmt::format("“{}” does not stand in the {} of {}; nothing was "
                                               "changed",
                                               request.find, request.field, found->id)};
    replace(*text, request);
    found->titled |= request.field == "title";
    return save(std::move(*found));
}

GatewayResponse MemoryRoom::answer(const NotesCase::EditFilters& request) {
    auto found = memory(request.id);
    if (!found)
        return AnswerCase::Failure{found.error()};
    Filters filters = mapOf(found->filters);
    for (const std::string& key : request.unset.value_or(std::vector<std::string>{}))
        filters.erase(key);
    for (const auto& [key, value] : request.set.value_or(Filters{}))
        filters[key] = value;
    found->filters = pairsOf(filters);
    return save(std::move(*found));
}

} // namespace wendlow
