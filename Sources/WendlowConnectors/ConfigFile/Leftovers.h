#pragma once

#include "Observation.h"

#include <chrono>
#include <filesystem>

namespace wendlow::Leftovers {

/// Clears away the hidden files beside `file` that a verb left which was killed: its own unfinished
/// writing goes, and what it had set aside goes where the same bytes stand in the file or in a copy
/// of it. What stands nowhere else becomes a copy, and is told. Files of a process that still runs
/// are its own, but for this one's: it does one verb to a file at a time.
Observations sweep(const std::filesystem::path& file, std::chrono::system_clock::time_point date);

} // namespace wendlow::Leftovers
