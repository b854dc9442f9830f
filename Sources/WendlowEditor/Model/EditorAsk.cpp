#include "Model/EditorAsk.h"

#include <algorithm>

#include <boost/container_hash/hash.hpp>

namespace wendlow {

namespace {

/// The case whose text is `raw`.
template<class Cases>
std::optional<typename Cases::value_type> named(const Cases& cases, std::string_view raw) {
    const auto found = std::ranges::find(cases, raw, [](auto value) { return text(value); });
    return found == cases.end() ? std::nullopt : std::optional(*found);
}

constexpr std::array sorts{EditorMemorySort::relevance, EditorMemorySort::newest,
                           EditorMemorySort::oldest};

/// Present is told apart from absent, whatever the value.
template<class Value> void add(std::size_t& seed, const std::optional<Value>& value) {
    boost::hash_combine(seed, value.has_value());
    if (value)
        boost::hash_combine(seed, *value);
}

} // namespace

std::string_view text(EditorKind kind) {
    switch (kind) {
    case EditorKind::memory:
        return "memory";
    case EditorKind::moment:
        return "moment";
    case EditorKind::meeting:
        return "meeting";
    }
    return {};
}

std::optional<EditorKind> editorKind(std::string_view raw) {
    return named(editorKinds, raw);
}

std::string_view text(EditorMemorySort sort) {
    switch (sort) {
    case EditorMemorySort::relevance:
        return "relevance";
    case EditorMemorySort::newest:
        return "newest";
    case EditorMemorySort::oldest:
        return "oldest";
    }
    return {};
}

std::optional<EditorMemorySort> editorMemorySort(std::string_view raw) {
    return named(sorts, raw);
}

bool EditorAsk::sameQuery(const EditorAsk& as) const {
    EditorAsk other = as;
    other.limit = limit;
    other.offset = offset;
    return *this == other;
}

std::size_t hash_value(const EditorAsk& ask) {
    std::size_t seed = boost::hash<std::string>()(ask.term);
    add(seed, ask.type);
    boost::hash_combine(seed, ask.kind);
    boost::hash_range(seed, ask.scopes.begin(), ask.scopes.end());
    for (const auto& [key, picks] : ask.filters) {
        boost::hash_combine(seed, key);
        for (const EditorPick& pick : picks) {
            boost::hash_combine(seed, pick.name);
            for (const FilterValue& member : pick.members)
                std::visit([&](const auto& value) { boost::hash_combine(seed, value); },
                           static_cast<const FilterValue::variant&>(member));
        }
    }
    add(seed, ask.sort);
    boost::hash_combine(seed, ask.limit);
    boost::hash_combine(seed, ask.offset);
    return seed;
}

} // namespace wendlow
