#pragma once

#include "Observation.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// Where a byte of a text stands, as a person's editor counts: from 1, in characters.
struct FilePlace {
    std::size_t line = 1;
    std::size_t column = 1;

    /// Beyond the end is the end.
    static FilePlace of(std::string_view bytes, std::size_t offset);
    /// "line 3, column 12" for each observation that knows a byte of the file that is its subject,
    /// and nothing for the others. Reads the files; blocks on the disk.
    static std::vector<std::string> words(const Observations& observations);

    bool operator==(const FilePlace&) const = default;
};

} // namespace wendlow
