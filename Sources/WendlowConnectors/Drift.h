#pragma once

#include "Observation.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow::Drift {

/// Said of an entry whose commands are right and whose rest is not.
std::string otherShape();

/// What keeps a program that is there from being run, which makes no entry wrong. Asks the disk.
Observations unrunnable(const std::filesystem::path& binary);

/// Why the command `found` in a tool's file is not the one `expected`, and whether the executable
/// `binary` is missing: sentences, none when all is well. Asks the disk about `binary` alone.
std::vector<std::string> reasons(std::string_view found, std::string_view expected,
                                 const std::filesystem::path& binary);

} // namespace wendlow::Drift
