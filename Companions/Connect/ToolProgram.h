#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

/// A tool's program as a shell would find it. It is looked at and never run: a tool that is started
/// may update itself, and write its files.
namespace wendlow::connect {

struct ToolProgram {
    std::filesystem::path path;
    std::optional<std::string> version; ///< by the package it lies in, or by its own place

    /// The first of this name in the folders of `search`, which is a PATH.
    static std::optional<ToolProgram> find(std::string_view name, std::string_view search);
};

} // namespace wendlow::connect
