#pragma once

#include "Observation.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace wendlow {

/// Who a connector is.
struct ConnectorIdentity {
    std::string id;     ///< stable key, also the name of the tool's receipt file
    std::string name;   ///< for a person
    std::string detail; ///< one line for a person
    std::string symbol; ///< a name in the icon table

    bool operator==(const ConnectorIdentity&) const = default;
};

enum class ConnectorState {
    notFound,  ///< the tool's files are not on this machine
    found,     ///< the tool is here and the wiring is not, or cannot be told
    connected, ///< all blocks are in place exactly
    drifted,   ///< a block is there, but the whole is not as this build would write it
};

/// The case's name.
std::string_view text(ConnectorState state);

/// What a scan came upon, beside the state, that its caller may act by.
struct ScanFacts {
    bool unreadable = false; ///< one of the tool's files does not read
    bool foreign = false;    ///< something that is not ours stands in our place

    bool operator==(const ScanFacts&) const = default;
};

struct ScanReport {
    ConnectorIdentity identity;
    ConnectorState state = ConnectorState::notFound;
    Observations observations;
    ScanFacts facts = {};

    bool operator==(const ScanReport&) const = default;
};

struct ConnectorOutcome {
    enum class Result { changed, unchanged, refused };

    Result result = Result::unchanged;
    Observations observations;
    std::vector<std::filesystem::path> backups; ///< the copies made first

    bool operator==(const ConnectorOutcome&) const = default;
};

/// The case's name.
std::string_view text(ConnectorOutcome::Result result);

using FileDate = std::chrono::system_clock::time_point;

/// Before every date there is.
inline constexpr FileDate distantPast = FileDate::min();
enum class Links { followed, notFollowed };
/// When the contents of what stands at `path` were last modified.
std::optional<FileDate> modificationDate(const std::filesystem::path& path,
                                         Links links = Links::followed);

/// A memory file that a tool keeps.
struct ConnectorMemoryFile {
    std::string path;
    std::optional<std::int64_t> bytes;
    std::optional<FileDate> modified;

    /// The record of a file that exists, links followed; nothing for one that does not.
    static std::optional<ConnectorMemoryFile> stat(const std::filesystem::path& path);
    /// The Markdown files directly in a folder, sorted. A folder that cannot be listed has none.
    static std::vector<std::filesystem::path> markdown(const std::filesystem::path& folder);

    bool operator==(const ConnectorMemoryFile&) const = default;
};

struct MemoryFileReport {
    std::vector<ConnectorMemoryFile> files;

    /// Those of `paths` that exist, in that order.
    static MemoryFileReport of(const std::vector<std::filesystem::path>& paths);

    bool operator==(const MemoryFileReport&) const = default;
};

/// A project that a tool has worked in.
struct ConnectorProject {
    std::string path; ///< may carry " (decoded path not verified on disk)"
    FileDate lastActivity;
    std::optional<ConnectorMemoryFile> memory;

    bool operator==(const ConnectorProject&) const = default;
};

struct ProjectReport {
    std::optional<std::string> source; ///< the path of the store that was read
    std::vector<ConnectorProject> projects;
    std::optional<std::string> note; ///< what to show when the list is empty

    /// Puts the most recently active project first, or notes that there is none.
    void arrange();

    bool operator==(const ProjectReport&) const = default;
};

} // namespace wendlow
