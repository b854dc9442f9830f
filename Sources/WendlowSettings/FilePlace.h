#pragma once

#include "Observation.h"

#include <cstddef>
#include <optional>
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
    /// The offset that a sentence tells by "(at byte N)"; nothing where it tells none.
    static std::optional<std::size_t> byteIn(std::string_view sentence);
    /// "line 3, column 12" for each observation that tells a byte of the file that is its subject,
    /// and nothing for the others. Reads the files; blocks on the disk.
    static std::vector<std::string> words(const Observations& observations);

    bool operator==(const FilePlace&) const = default;
};

} // namespace wendlow
