#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// The version of the contract that this side speaks. There is no negotiation and no downgrade: a
/// mismatch means that one of the two sides is older than the other.
namespace wendlow::WireContract {

inline constexpr std::uint64_t version = 1; ///< sent with every message

inline constexpr std::string_view mismatchMessage =
    "Wendlow updated; this session's bridge is older than the daemon, restart the session";

enum class Verdict { admitted, mismatch };

/// A peer that sent no version is admitted.
constexpr Verdict verdict(std::uint64_t ours, std::optional<std::uint64_t> daemon) {
    return daemon && *daemon != ours ? Verdict::mismatch : Verdict::admitted;
}

} // namespace wendlow::WireContract
