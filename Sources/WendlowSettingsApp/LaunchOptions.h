#pragma once

#include "Pane.h"
#include "WindowDoor.h"

#include <expected>
#include <filesystem>
#include <optional>
#include <span>
#include <string>

namespace wendlow {

struct PixelSize {
    int width = 0;
    int height = 0;
    bool operator==(const PixelSize&) const = default;
};

/// What the command line asks for. Arguments that are not the application's own are left to the
/// toolkit.
struct LaunchOptions {
    std::optional<WindowDoor::Pane> pane;           ///< "--window=PANE"
    std::optional<Pane> settingsPane;               ///< "--pane=NAME", of the Settings window
    std::optional<std::filesystem::path> snapshots; ///< "--snapshots DIR"
    std::optional<PixelSize> size;                  ///< "--size WxH", of the snapshots
    std::optional<double> textScale;                ///< "--text-scale N", in place of the desktop's
    bool firstFrame = false; ///< "--first-frame": report the first frame of the window and end

    bool operator==(const LaunchOptions&) const = default;

    /// Reads the arguments after the program's name. Fails with a sentence for the person.
    static std::expected<LaunchOptions, std::string> parse(std::span<const std::string> arguments);
};

} // namespace wendlow
