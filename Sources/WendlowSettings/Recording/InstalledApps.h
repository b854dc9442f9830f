#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The applications that are installed on this machine, by the names that a person reads. Reads the
/// disk, so not on the UI thread; what cannot be read is left out.
namespace wendlow::InstalledApps {

struct Places {
    std::vector<std::filesystem::path> bundles; ///< folders of ".app" bundles
    std::vector<std::filesystem::path> entries; ///< folders of desktop entries
    std::string language;                       ///< such as "de" or "de_AT"; empty: as it stands
};

/// Those of the running system: "/Applications", the one in `home`, and the folders of its desktop
/// entries.
Places places(const std::filesystem::path& home);

/// In the order of the alphabet whatever their case, each once.
std::vector<std::string> names(const Places& places);

/// The name of the application of a bundle; nothing for what is none.
std::optional<std::string> nameOfBundle(const std::filesystem::path& bundle);

/// The name in a desktop entry that is shown in menus; nothing for any other.
std::optional<std::string> nameInEntry(std::string_view entry, std::string_view language);

} // namespace wendlow::InstalledApps
