#include "Model/EditorCount.h"

#include <algorithm>
#include <utility>

namespace wendlow {

std::vector<std::string> names(const std::vector<EditorCount>& census) {
    std::vector<std::string> all;
    all.reserve(census.size());
    for (const EditorCount& row : census)
        all.push_back(row.name);
    return all;
}

void sortCensus(std::vector<EditorCount>& census) {
    std::ranges::sort(census, [](const EditorCount& one, const EditorCount& other) {
        return one.count != other.count ? one.count > other.count : one.name < other.name;
    });
}

EditorPick::EditorPick(std::string text) : name(text), members{FilterValue(std::move(text))} {}

EditorPick::EditorPick(const EditorCount& row) : name(row.name), members(row.members) {
    if (members.empty())
        members.emplace_back(name);
}

std::set<std::string> names(const EditorPicks& picks) {
    std::set<std::string> all;
    for (const EditorPick& pick : picks)
        all.insert(pick.name);
    return all;
}

} // namespace wendlow
