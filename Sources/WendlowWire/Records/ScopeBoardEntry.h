#pragma once

#include <string>
#include <vector>

#include "Described.h"
#include "Records/Counts.h"

namespace wendlow {

/// One scope: the folders that are mapped to it and the kinds of things filed under it.
struct ScopeBoardEntry {
    std::string path;
    std::vector<std::string> folders;
    std::vector<KindCount> kinds;
    WENDLOW_RECORD(ScopeBoardEntry, path, folders, kinds);
};

} // namespace wendlow
