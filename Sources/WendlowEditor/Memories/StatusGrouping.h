#pragma once

#include "Model/EditorRows.h"
#include "TranslationContext.h"

#include <string>
#include <vector>

namespace wendlow {

/// Work by its status. What is archived stands apart.
struct StatusGrouping {
    /// Stands for the status of those that have none; whoever shows it says it.
    static constexpr const char* none = sayLater("no status");

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
