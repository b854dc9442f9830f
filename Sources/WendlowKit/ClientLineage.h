#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace wendlow {

namespace LineageCase {

/// This process is from before an update: a newer build of the family lies where it was started.
struct Stale {
    std::optional<std::string> installedVersion;
    bool operator==(const Stale&) const = default;
};

/// Anything else, also whatever could not be found out.
struct Foreign {
    bool operator==(const Foreign&) const = default;
};

} // namespace LineageCase

/// What a refused client is to the daemon. A refusal after the program on disk was replaced by a
/// newer build is an expected state of a long-lived session; any other is a real problem.
struct ClientLineage : std::variant<LineageCase::Stale, LineageCase::Foreign> {
    using variant::variant;

    using Path = std::filesystem::path;

    /// What every identifier of the family is or, before a dot, begins with.
    static constexpr std::string_view family = "works.fenmoor.wendlow";

    /// The bundle that lies at a path now; after an update not the one that runs.
    struct Occupant {
        std::optional<std::string> bundleID = std::nullopt;
        std::optional<std::string> version = std::nullopt;
        bool operator==(const Occupant&) const = default;
    };

    static ClientLineage judge(bool executableReplaced, const Occupant& occupant);

    /// Reads the disk; no path is foreign.
    static ClientLineage probe(const std::optional<Path>& executable);

    /// Whether the file is younger than this process.
    static bool executableReplaced(const Path& executable);

    /// The bundle around an executable; nothing in it where there is no bundle that can be read.
    static Occupant occupantBundle(const Path& executable);

    /// Where this process's program was when it started, whatever lies there now.
    static std::optional<Path> executablePath();
};

} // namespace wendlow
