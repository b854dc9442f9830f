#pragma once

#include <chrono>
#include <cstdint>

namespace wendlow {

/// How patient the client is after a failure of transport. The first attempt of a request has no
/// limit; only what follows a failure is bounded.
struct DoorRedial {
    std::chrono::nanoseconds budget; ///< how long a knock and a retry may each wait
    std::chrono::nanoseconds pause;  ///< how long a knock waits first

    static const DoorRedial standard;

    /// The budget in whole seconds for use in a sentence, cut, and at least 1.
    std::int64_t budgetSeconds() const;

    bool operator==(const DoorRedial&) const = default;
};

inline constexpr DoorRedial DoorRedial::standard{.budget = std::chrono::seconds(3),
                                                 .pause = std::chrono::milliseconds(100)};

} // namespace wendlow
