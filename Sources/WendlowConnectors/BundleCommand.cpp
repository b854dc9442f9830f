#include "BundleCommand.h"

#include "OwnedNames.h"

#include <array>
#include <string>

#include <fmt/format.h>

namespace wendlow::BundleCommand {

namespace {

struct Flagged {
    std::string_view before;
    std::string_view value;
};

bool isWord(std::string_view text) {
    return !text.empty() && !text.contains(' ');
}

/// Splits at the last " --flag ", or where there is none at the last " --flag=".
std::optional<Flagged> splitAtFlag(std::string_view command, std::string_view flag) {
    for (const char joint : {' ', '='}) {
        const std::string marker = fmt::format(" {}{}", flag, joint);
        if (const std::size_t at = command.rfind(marker); at != std::string_view::npos)
            return Flagged{command.substr(0, at), command.substr(at + marker.size())};
    }
    return std::nullopt;
}

} // namespace

std::string_view withoutSlot(std::string_view command) {
    const auto split = splitAtFlag(command, "--slot");
    return split && isWord(split->value) ? split->before : command;
}

std::optional<std::string_view> harness(std::string_view command) {
    const auto split = splitAtFlag(withoutSlot(command), "--harness");
    return split && isWord(split->value) ? std::optional(split->value) : std::nullopt;
}

std::optional<std::string_view> hookExecutable(std::string_view command, std::string_view harness) {
    if (harness.empty())
        return std::nullopt;
    const std::string_view line = withoutSlot(command);
    for (const std::string_view flag : {" --harness ", " --harness="}) {
        const std::string ending = fmt::format("{}{}", flag, harness);
        if (!line.ends_with(ending))
            continue;
        const std::string_view executable = line.substr(0, line.size() - ending.size());
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
