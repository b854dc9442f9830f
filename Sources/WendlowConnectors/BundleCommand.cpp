#include "BundleCommand.h"

#include "OwnedNames.h"

#include <array>
#include <string>

namespace wendlow::BundleCommand {

namespace {

struct Flagged {
    std::string_view before;
    std::string_view value;
};

bool isWord(std::string_view text) {
    return !text.empty() && !text.contains(' ');
}

/// A flag with what stands before it and what joins it to its value.
struct Flag {
    std::string_view spaced;
    std::string_view joined;
};
constexpr Flag slotFlag{" --slot ", " --slot="};
constexpr Flag harnessFlag{" --harness ", " --harness="};

/// Splits at the last " --flag ", or where there is none at the last " --flag=".
std::optional<Flagged> splitAtFlag(std::string_view command, const Flag& flag) {
    for (const std::string_view marker : {flag.spaced, flag.joined}) {
        // Looked for by its blank: most commands have few of these.
        std::string_view before = command;
        for (auto at = before.rfind(' '); at != std::string_view::npos; at = before.rfind(' ')) {
            before = command.substr(0, at);
            if (command.substr(at).starts_with(marker))
                return Flagged{before, command.substr(at + marker.size())};
        }
    }
    return std::nullopt;
}

} // namespace

std::string_view withoutSlot(std::string_view command) {
    const auto split = splitAtFlag(command, slotFlag);
    return split && isWord(split->value) ? split->before : command;
}

std::optional<std::string_view> harness(std::string_view command) {
    const auto split = splitAtFlag(withoutSlot(command), harnessFlag);
    return split && isWord(split->value) ? std::optional(split->value) : std::nullopt;
}

std::optional<std::string_view> hookExecutable(std::string_view command, std::string_view harness) {
    if (harness.empty())
        return std::nullopt;
    const std::string_view line = withoutSlot(command);
    if (!line.ends_with(harness))
        return std::nullopt;
    const std::string_view rest = line.substr(0, line.size() - harness.size());
    for (const std::string_view flag : {harnessFlag.spaced, harnessFlag.joined}) {
        if (!rest.ends_with(flag))
            continue;
        const std::string_view executable = rest.substr(0, rest.size() - flag.size());
        return isWord(executable) ? std::optional(executable) : std::nullopt;
    }
    return std::nullopt;
}

bool names(std::string_view path, std::string_view binary) {
    if (!path.starts_with('/'))
        return false;
    // From the back, because only the last four pieces count; empty pieces do not count at all.
    const std::array<std::string_view, 4> expected{binary, "MacOS", "Contents",
                                                   OwnedNames::application};
    std::string_view rest = path;
    for (const std::string_view piece : expected) {
        while (rest.ends_with('/'))
            rest.remove_suffix(1);
        const std::size_t slash = rest.rfind('/');
        if (slash == std::string_view::npos || rest.substr(slash + 1) != piece)
            return false;
        rest = rest.substr(0, slash + 1);
    }
    return true;
}

bool isServer(std::string_view command, std::string_view current) {
    return command == current || names(command, OwnedNames::mcpProgram) ||
           (OwnedNames::isDevelopmentBuild(command) &&
            command.ends_with("/" + std::string(OwnedNames::mcpProgram)));
}

} // namespace wendlow::BundleCommand
