#pragma once

#include <map>
#include <string>
#include <vector>

namespace wendlow {

/// What the file system says of some paths at one moment. Two that are equal stand for the same
/// bytes; the files are not read for it.
using FileStamps = std::map<std::string, std::string>;

/// Blocks on the disk. What is not there has a stamp too.
FileStamps stampsOf(const std::vector<std::string>& paths);

} // namespace wendlow
