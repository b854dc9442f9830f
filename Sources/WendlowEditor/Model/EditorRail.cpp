#include "Model/EditorRail.h"

#include "Say.h"

#include <algorithm>

namespace wendlow {

namespace {

std::int64_t countOf(const std::vector<EditorCount>& census, std::string_view name) {
    const auto found = std::ranges::find(census, name, &EditorCount::name);
    return found == census.end() ? 0 : found->count;
}

/// A type that most tools use, and the name of many.
struct KnownType {
    const char* one;
    const char* many;
};

constexpr std::array knownTypes{
    KnownType{sayLater("decision"), sayLater("decisions")},
    KnownType{sayLater("fact"), sayLater("facts")},
    KnownType{sayLater("finding"), sayLater("findings")},
    KnownType{sayLater("focus"), sayLater("focus")},
    KnownType{sayLater("mod"), sayLater("mods")},
    KnownType{sayLater("note"), sayLater("notes")},
    KnownType{sayLater("person"), sayLater("persons")},
    KnownType{sayLater("preference"), sayLater("preferences")},
    KnownType{sayLater("rule"), sayLater("rules")},
    KnownType{sayLater("ticket"), sayLater("tickets")},
};

/// Null: a tool has invented it.
const KnownType* knownType(std::string_view type) {
    const auto* const found = std::ranges::find(
        knownTypes, type, [](const KnownType& each) { return std::string_view(each.one); });
    return found == knownTypes.end() ? nullptr : found;
}

} // namespace

bool RailCounts::isGoverned(std::string_view type) {
    return std::ranges::find(governedTypes, type) != governedTypes.end();
}

std::int64_t RailCounts::memories(const std::vector<EditorCount>& standing) {
    std::int64_t sum = 0;
    for (const EditorCount& row : standing)
        if (!isGoverned(row.name))
            sum += row.count;
    return sum;
}

std::int64_t RailCounts::rules(const std::vector<EditorCount>& standing) {
    return countOf(standing, "rule");
}

std::vector<TypeShelfRow> TypeShelf::rows(const std::vector<EditorCount>& standing,
                                          const EditorAnswer& answer) {
    std::vector<TypeShelfRow> rows;
    rows.reserve(standing.size());
    for (const EditorCount& row : standing) {
        const auto count = answer.narrowed ? countOf(answer.typeCounts, row.name) : row.count;
        rows.push_back(
            {.name = row.name, .count = count, .matchedNothing = answer.narrowed && count == 0});
    }
    return rows;
}

std::optional<std::int64_t> TypeShelf::recordCount(EditorKind kind, const EditorAnswer& answer,
                                                   std::optional<std::int64_t> standing) {
    const auto found = answer.kindCounts.find(kind);
    return found == answer.kindCounts.end() ? standing : found->second;
}

std::string TypeWords::single(std::string_view word) {
    const KnownType* const known = knownType(word);
    return known != nullptr ? say(known->one) : std::string(word);
}

std::string TypeWords::pluralized(std::string_view word) {
    if (const KnownType* const known = knownType(word))
        return say(known->many);
    std::string text(word);
    if (text.ends_with('s') || text.ends_with("ed"))
        return text;
    if (text.size() >= 2 && text.ends_with('y')) {
        const auto before = static_cast<unsigned char>(text[text.size() - 2]);
        const auto lower = static_cast<char>(before | 0x20U);
        const bool isLetter = before >= 0x80 || (lower >= 'a' && lower <= 'z');
        if (isLetter && std::string_view("aeiou").find(lower) == std::string_view::npos)
            return text.substr(0, text.size() - 1) + "ies";
    }
    return text + "s";
}

} // namespace wendlow
