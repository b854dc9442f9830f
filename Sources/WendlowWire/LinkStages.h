#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace wendlow {

/// The stages of one request, kept by its caller to say where a slow one spent its time.
struct LinkStages {
    using Duration = std::chrono::nanoseconds;

    Duration queued{};
    Duration wire{}; ///< from sending to the answer, the daemon's share included
    std::optional<Duration> daemon = std::nullopt;
    std::optional<Duration> render = std::nullopt;
    Duration total{};

    bool operator==(const LinkStages&) const = default;

    /// Whole milliseconds, rounded towards zero; never below zero.
    static std::int64_t wholeMillis(Duration duration);

    /// A line for the log. Each stage takes its share of what remains, so that the parts never
    /// exceed the total; what no stage accounts for is the residual.
    std::string line(std::string_view verb) const;
};

} // namespace wendlow
