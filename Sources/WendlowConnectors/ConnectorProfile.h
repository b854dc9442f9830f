#pragma once

#include <array>
#include <string_view>

namespace wendlow::Connectors {

/// Which build of the product this application is.
enum class Profile { dev, production };

inline constexpr std::array profiles{Profile::dev, Profile::production};

/// The case's name.
constexpr std::string_view text(Profile profile) {
    return profile == Profile::dev ? "dev" : "production";
}

} // namespace wendlow::Connectors
