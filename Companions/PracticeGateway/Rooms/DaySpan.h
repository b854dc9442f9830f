#pragma once

#include <expected>
#include <limits>
#include <optional>
#include <string>

namespace wendlow {

/// The time from the beginning of one day to the end of another, in seconds since 1970.
struct DaySpan {
    double from = -std::numeric_limits<double>::infinity();
    double to = std::numeric_limits<double>::infinity(); ///< the first second behind it

    /// Days as "2026-11-21"; one that is absent does not bound. An error is a sentence.
    static std::expected<DaySpan, std::string> read(const std::optional<std::string>& first,
                                                    const std::optional<std::string>& last);

    bool holds(double at) const { return at >= from && at < to; }
};

} // namespace wendlow
