#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

/// A new build's hook is slow the first time. So it is fired once with a made-up prompt before a
/// person's own depends on it, and a marker says for which build that was done, however it ended.
namespace wendlow::FirstRunWarm {

enum class Outcome { ok, timeout, failed };

struct Marker {
    std::string build;
    Outcome outcome = Outcome::ok;
    std::int64_t milliseconds = 0;

    /// Without a line end.
    std::string line() const;
    bool operator==(const Marker&) const = default;
};

struct Result {
    bool alreadyWarm = false; ///< nothing was fired; the rest says nothing
    Outcome outcome = Outcome::ok;
    std::int64_t milliseconds = 0;
    bool operator==(const Result&) const = default;
};

std::string_view text(Outcome outcome);

/// "warmed-build" in the product's own folder.
std::filesystem::path path(const std::filesystem::path& support);
std::optional<Marker> parse(const std::optional<std::string>& text);
/// Whether it was done for this build. Blocks.
bool isWarm(const std::filesystem::path& marker, std::string_view build);

/// A pipe takes this much at once. More could wait for ever on a hook that does not read.
inline constexpr std::size_t pipeBound = 16384;

/// What the hook is sent: a prompt as Claude Code would send it.
std::string payload(std::string_view home);

struct Firing {
    std::filesystem::path hook;
    std::string build;
    std::filesystem::path marker;
    std::chrono::milliseconds leash;
    std::string home;
};

/// Fires the hook, unless it was done, and writes the marker. Blocks for up to two seconds more
/// than the leash: not for the UI thread.
Result run(const Firing& firing);

} // namespace wendlow::FirstRunWarm
