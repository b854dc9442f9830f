#include "Memories/StatusGrouping.h"

#include <algorithm>
#include <utility>

namespace wendlow {

StatusGrouping StatusGrouping::group(const EditorRows& hits) {
    StatusGrouping grouping;
    for (const EditorMemoryHit& hit : hits) {
        const auto& filters = hit.memory.filters;
        const auto archived = filters.find("archived");
        if (archived != filters.end() && archived->second == "true") {
            grouping.archived.push_back(hit);
            continue;
        }
        const auto found = filters.find("status");
        const std::string status = found == filters.end() ? none : found->second;
        auto group = std::ranges::find(grouping.live, status, &Group::status);
        if (group == grouping.live.end())
            group = grouping.live.insert(group, {.status = status, .rows = {}});
        group->rows.push_back(hit);
    }
    // An order that a new row does not change.
    std::ranges::sort(grouping.live, {}, [](const Group& group) {
        return std::pair(group.status == none, group.status);
    });
    return grouping;
}

} // namespace wendlow
