#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

/// What the Stats window knows of a day, one record for each thing that is asked. Whole figures are
/// seconds, as the daemon gives them: they may be 0, negative or as large as there are numbers.
namespace wendlow::Dashboard {

/// Stays at the largest or the smallest number where there is none for the sum.
inline std::int64_t sum(std::int64_t one, std::int64_t other) {
    std::int64_t both = 0;
    if (!__builtin_add_overflow(one, other, &both))
        return both;
    using Limits = std::numeric_limits<std::int64_t>;
    return other > 0 ? Limits::max() : Limits::min();
}

struct AppShare {
    std::string name;
    std::int64_t active = 0;
    bool isBrowser = false;
    bool operator==(const AppShare&) const = default;
};

struct Today {
    std::int64_t attended = 0;
    std::int64_t unattended = 0;
    std::int64_t active = 0;
    std::vector<AppShare> apps; ///< most active first
    bool operator==(const Today&) const = default;
};

struct Week {
    /// The person's own longest day.
    struct BiggestDay {
        std::string name; ///< of the weekday
        std::int64_t attended = 0;
        bool operator==(const BiggestDay&) const = default;
    };
    /// The day on which an AI did most alone.
    struct AIPeakDay {
        std::string name; ///< of the weekday
        std::int64_t unattended = 0;
        bool operator==(const AIPeakDay&) const = default;
    };

    std::int64_t attended = 0;
    std::int64_t unattended = 0;
    std::int64_t active = 0;
    std::vector<AppShare> apps; ///< most active first
    std::optional<BiggestDay> biggestDay = std::nullopt;
    std::optional<AIPeakDay> aiPeakDay = std::nullopt;
    bool operator==(const Week&) const = default;
};

struct AppSlice {
    std::string app;
    std::int64_t seconds = 0;
    bool operator==(const AppSlice&) const = default;
};

/// Times are seconds since 1970.
struct FocusRun {
    std::int64_t seconds = 0;
    std::vector<AppSlice> apps;
    double startedAt = 0;
    double endedAt = 0;
    bool operator==(const FocusRun&) const = default;
};

struct Session {
    std::string title;
    std::int64_t seconds = 0;
    std::string chapterId;
    bool operator==(const Session&) const = default;
};

struct Attention {
    enum class Bucket { humans, ai, scrolling };

    std::int64_t aiSeconds = 0;
    std::int64_t humansSeconds = 0;
    std::int64_t scrollingSeconds = 0;
    std::int64_t scrollingGlances = 0;
    bool operator==(const Attention&) const = default;

    std::int64_t seconds(Bucket bucket) const;
    /// The one with most seconds first; those that are equal in the order of the cases.
    std::array<Bucket, 3> ranked() const;
};

struct WebSite {
    std::string domain;
    std::int64_t active = 0;
    std::optional<std::string> favicon = std::nullopt; ///< bytes of a picture, or what is to be one
    bool operator==(const WebSite&) const = default;
};

struct Web {
    std::int64_t browserSeconds = 0;
    std::vector<WebSite> sites; ///< in the daemon's order
    bool operator==(const Web&) const = default;
};

} // namespace wendlow::Dashboard
