#include "ClaudeChat/ClaudeDesktop.h"

#include "ConfigFile/Disk.h"

#include <algorithm>
#include <ranges>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <unistd.h>

namespace wendlow::ClaudeDesktop {

namespace {

using Path = std::filesystem::path;

/// A file of the kernel's about a process; empty where the process is gone, or is not to be seen.
std::string about(const Path& process, const char* name) {
    return Disk::read(process / name).value_or(std::nullopt).value_or("");
}

bool isAppName(const Path& name) {
    return name == "Claude" || name == "claude-desktop";
}

/// The program that a process runs. One that hides its program still states what it was called as.
Path program(const Path& process, std::string_view commandLine) {
    constexpr std::string_view replacedMark = " (deleted)"; // by an update, while it runs
    const auto link = Disk::readLink(process / "exe");
    std::string text =
        link ? link->string() : std::string(commandLine.substr(0, commandLine.find('\0')));
    if (text.ends_with(replacedMark))
        text.resize(text.size() - replacedMark.size());
    return text;
}

/// Whether a general runtime was started on the app's archive, as `electron .../app.asar`.
bool runsArchive(std::string_view commandLine) {
    return std::ranges::any_of(commandLine | std::views::split('\0'), [](const auto& word) {
        const Path argument(std::string_view(word.begin(), word.end()));
        return argument.extension() == ".asar" &&
               std::ranges::any_of(argument.parent_path(), isAppName);
    });
}

/// Whether the desktop started the process as the app: such a process has a unit of its own,
/// `app-<launcher>-<application>-<number>.scope`.
bool isInUnit(std::string_view groups) {
    return groups.contains(fmt::format("-{}-", applicationID)) ||
           groups.contains(fmt::format("-{}.", applicationID)) ||
           groups.contains(fmt::format("-{}@", applicationID));
}

bool isOfThisUser(std::string_view status) {
    return status.contains(fmt::format("\nUid:\t{}\t", ::getuid()));
}

bool isApp(const Path& process) {
    const std::string commandLine = about(process, "cmdline");
    // A kernel thread, or a process that has ended and waits to be collected.
    if (commandLine.empty())
        return false;
    return (isAppName(program(process, commandLine).filename()) || runsArchive(commandLine) ||
            isInUnit(about(process, "cgroup"))) &&
           isOfThisUser(about(process, "status"));
}

bool isNumber(std::string_view name) {
    return std::ranges::all_of(name, [](char byte) { return byte >= '0' && byte <= '9'; });
}

} // namespace

bool isRunning(const Path& processes) {
    const auto names = Disk::names(processes);
    if (!names)
        return true;
    return std::ranges::any_of(
        *names, [&](const std::string& name) { return isNumber(name) && isApp(processes / name); });
}

} // namespace wendlow::ClaudeDesktop
