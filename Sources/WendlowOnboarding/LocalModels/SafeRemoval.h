#pragma once

#include <expected>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// Removes what a receipt names. The receipt is a file that any program could have written, and
/// links may be planted while it works: so it goes only below the folders that it is given, walks
/// there without following a link, and takes away a link as a link.
namespace wendlow::SafeRemoval {

struct Places {
    std::filesystem::path home;
    std::filesystem::path support; ///< the product's own folder; mostly, not always, in the home
};

/// Why `path` is never removed, whatever stands there; empty: nothing is against it. Asks no disk.
std::string refusal(std::string_view path, const Places& places);

/// Removes the file, the link, or the folder with all that is in it. Goes on behind what cannot be
/// removed; what another process has removed meanwhile is no failure, but for the path itself. The
/// error is a sentence. Blocks.
std::expected<void, std::string> remove(std::string_view path, const Places& places);

} // namespace wendlow::SafeRemoval
