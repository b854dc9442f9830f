#pragma once

#include "Model/EditorRows.h"

#include <string>
#include <vector>

namespace wendlow {

/// Work by its status. What is archived stands apart.
struct StatusGrouping {
    struct Group {
        std::string status;
        EditorMemoryHits rows;
        bool operator==(const Group&) const = default;
    };

    std::vector<Group> live; ///< by status; those without one are last
    EditorMemoryHits archived;

    bool operator==(const StatusGrouping&) const = default;

    static StatusGrouping group(const EditorRows& hits);
};

} // namespace wendlow
