#pragma once

#include "ConnectorTypes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace wendlow {

/// One line of a table: a project, or a memory file.
struct InventoryEntry {
    std::string path;                          ///< as the report gave it
    std::optional<ConnectorMemoryFile> memory; ///< of a project that has one
    std::optional<std::int64_t> bytes;         ///< of a memory file
    std::optional<FileDate> date;              ///< last active or changed; nothing: unknown

    bool operator==(const InventoryEntry&) const = default;
};

/// What a tool already has, as its row shows it.
struct Inventory {
    std::string source; ///< the path of the store that was read; empty for none
    std::string projectsNote;
    std::vector<InventoryEntry> projects;
    std::string memoryNote;
    std::vector<InventoryEntry> memoryFiles;

    /// A list that is empty has a note that says so.
    static Inventory of(ProjectReport projects, MemoryFileReport memoryFiles);
};

} // namespace wendlow
