#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace wendlow {

/// Which of the two builds this is; both can be installed side by side.
enum class ClientProfile { dev, production };

namespace ClientProfiles {

inline constexpr std::array all = {ClientProfile::dev, ClientProfile::production};
inline constexpr ClientProfile current = ClientProfile::production;

constexpr bool isProduction(ClientProfile profile) {
    return profile == ClientProfile::production;
}

/// The raw string: "dev", "production".
constexpr std::string_view text(ClientProfile profile) {
    return isProduction(profile) ? "production" : "dev";
}

constexpr std::optional<ClientProfile> parse(std::string_view raw) {
    for (const ClientProfile profile : all)
        if (text(profile) == raw)
            return profile;
    return std::nullopt;
}

} // namespace ClientProfiles
} // namespace wendlow
