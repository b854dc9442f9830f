#pragma once

#include <cstdint>
#include <string>

namespace wendlow {

/// A size on the disk as a person reads it: whole megabytes, "864 MB", and above 999 of them "1.8
/// GB". What no disk has, a size below nothing, is none.
std::string storageLabel(std::int64_t bytes);

} // namespace wendlow
