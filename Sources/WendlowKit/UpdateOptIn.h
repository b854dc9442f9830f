#pragma once

#include <string>
#include <string_view>

/// Whether the product may update itself, kept in the menu-bar process's settings.
namespace wendlow::UpdateOptIn {

enum class Choice { no, yes };

inline constexpr std::string_view key = "SUAutomaticallyUpdate";

/// Where the settings suite of this identifier lies: "~/Library/Preferences/<identifier>.ini", the
/// home read anew at each call.
std::string suitePath(std::string_view menubarID);

/// Sets the key and leaves the suite's others alone; does nothing where the suite cannot be opened.
/// Blocks on the disk.
void write(Choice choice, std::string_view menubarID);

} // namespace wendlow::UpdateOptIn
