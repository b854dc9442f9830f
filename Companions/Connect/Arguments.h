#pragma once

#include "Connectors.h"

#include <expected>
#include <filesystem>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace wendlow::connect {

enum class Verb { scan, install, remove, projects, memory, stale, converge, doctor, help };

/// What the command line asks for.
struct Arguments {
    Verb verb = Verb::help;
    std::set<std::string, std::less<>> tools; ///< none: all
    std::optional<std::filesystem::path> home;
    std::optional<std::filesystem::path> bundle;
    std::optional<std::filesystem::path> applications;
    Connectors::Profile profile = Connectors::Profile::production;
    std::optional<bool> isClaudeRunning; ///< nothing: to be looked for
    bool json = false;
};

/// One line, for standard error.
std::string usage();
/// The same with what the options mean, for somebody who asked.
std::string help();

/// The arguments without the program's name, or a sentence about what is wrong with them. Paths
/// come out absolute. Which tools there are is not known here.
std::expected<Arguments, std::string> parse(std::span<const std::string_view> words);

} // namespace wendlow::connect
