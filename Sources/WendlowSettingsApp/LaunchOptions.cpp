#include "LaunchOptions.h"

#include "Say.h"

#include <charconv>
#include <memory>

namespace wendlow {

namespace {

/// "1280x800"; nothing for another form or a size that no picture has.
std::optional<PixelSize> pixelSize(std::string_view text) {
    PixelSize size;
    const char* const begin = std::to_address(text.begin());
    const char* const end = std::to_address(text.end());
    const auto width = std::from_chars(begin, end, size.width);
    if (width.ec != std::errc() || width.ptr == end || *width.ptr != 'x')
        return std::nullopt;
    const auto height = std::from_chars(width.ptr + 1, end, size.height);
    const auto fits = [](int side) { return side >= 1 && side <= 10000; };
    if (height.ec != std::errc() || height.ptr != end || !fits(size.width) || !fits(size.height))
        return std::nullopt;
    return size;
}

constexpr std::string_view paneArgument = "--pane=";

std::string paneNames() {
    std::string names;
    for (const PaneDescription& pane : Panes::all())
        names.append(names.empty() ? "" : ", ").append(pane.id);
    return names;
}

/// "1.5"; nothing for what is no number, or one that the windows do not stand.
std::optional<double> scaleOf(std::string_view text) {
    double scale = 0;
    const char* const end = std::to_address(text.end());
    const auto read = std::from_chars(std::to_address(text.begin()), end, scale);
    const bool isRead = read.ec == std::errc() && read.ptr == end;
    return isRead && scale >= 1 && scale <= 2 ? std::optional(scale) : std::nullopt;
}

std::unexpected<std::string> wrong(const QString& words) {
    return std::unexpected(words.toStdString());
}

} // namespace

std::expected<LaunchOptions, std::string>
LaunchOptions::parse(std::span<const std::string> arguments) {
    LaunchOptions options;
    options.pane = WindowDoor::requested(arguments);
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        const auto next = argument + 1;
        if (*argument == "--first-frame") {
            options.firstFrame = true;
        } else if (*argument == "--snapshots") {
            if (next == arguments.end() || next->empty() || next->starts_with("--"))
                return wrong(say("--snapshots needs the folder for the pictures"));
            options.snapshots = *next;
            argument = next;
        } else if (*argument == "--size") {
            options.size = next == arguments.end() ? std::nullopt : pixelSize(*next);
            if (!options.size)
                return wrong(say("--size needs a size such as 1280x800"));
            argument = next;
        } else if (argument->starts_with(paneArgument)) {
            options.settingsPane =
                Panes::withId(std::string_view(*argument).substr(paneArgument.size()));
            if (!options.settingsPane)
                return wrong(say("--pane= needs one of {}", paneNames()));
        } else if (*argument == "--text-scale") {
            options.textScale = next == arguments.end() ? std::nullopt : scaleOf(*next);
            if (!options.textScale)
                return wrong(say("--text-scale needs a number from 1 to 2 such as 1.5"));
            argument = next;
        }
    }
    // Whoever names a pane of it asks for Settings.
    if (options.settingsPane && !options.pane)
        options.pane = WindowDoor::Pane::settings;
    return options;
}

} // namespace wendlow
