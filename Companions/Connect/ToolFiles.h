#pragma once

#include "Doctor.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow::connect {

/// Where a tool is looked for.
struct ToolFiles {
    std::string program; ///< as a shell calls it
    std::optional<std::filesystem::path> application;
    std::vector<std::filesystem::path> files; ///< its own folder first; each once

    /// Of the tool with this id.
    static ToolFiles of(std::string_view id, const Doctor::Places& places);
};

} // namespace wendlow::connect
