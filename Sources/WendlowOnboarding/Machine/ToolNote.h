#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// When something was last modified, since 1970.
struct FileTime {
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0; ///< below a thousand million

    bool operator==(const FileTime&) const = default;
};

/// What one of a tool's files was before a journey plugged the tool in.
struct FileBefore {
    std::string name;
    std::optional<std::string> bytes; ///< a hash of them; nothing: it was not there
    FileTime time;
    std::vector<std::string> copies; ///< names of those that lay beside it already
    /// What the journey made of it, once that is known: a hash likewise.
    std::optional<std::string> wired = std::nullopt;

    bool operator==(const FileBefore&) const = default;
};

/// The folder that such files lie in.
struct FolderBefore {
    std::string path;
    std::optional<std::string> names; ///< a hash of what lay in it; nothing: it was not there
    FileTime time;
    std::vector<FileBefore> files;

    bool operator==(const FolderBefore&) const = default;
};

/// What is written down of a tool before its files are touched, in a file of its own in the
/// product's support folder, so that a journey that is killed still knows when it is cancelled.
/// Any program could have written it: whoever reads one holds it against what the tool's connector
/// says. Blocks; any thread.
namespace ToolNote {

using Folders = std::vector<FolderBefore>;

/// Where that of the tool with this id lies.
std::filesystem::path path(const std::filesystem::path& support, std::string_view tool);
/// Nothing where there is none, or where it is not wholly what `write` writes.
std::optional<Folders> read(const std::filesystem::path& at);
/// A failure is no failure: then the tool's files stay as its connector leaves them.
void write(const Folders& folders, const std::filesystem::path& to);

} // namespace ToolNote
} // namespace wendlow
