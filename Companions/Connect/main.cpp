// wendlow-connect: what the Connected Apps pane does, without a window.

#include "Arguments.h"
#include "Doctor.h"
#include "Report.h"
#include "RuntimeFolder.h"
#include "Say.h"

#include "ClaudeChat/ClaudeDesktop.h"
#include "ClientInstance.h"
#include "Connectors.h"
#include "Converge.h"
#include "GatewayDoor.h"
#include "InstalledBundle.h"
#include "Translation.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <pwd.h>
#include <unistd.h>

namespace {

using namespace wendlow;
using connect::Arguments;
using connect::Report;
namespace Doctor = connect::Doctor;
using connect::Verb;

enum ExitStatus { succeeded = 0, wasRefused = 1, wrongUsage = 2 };

/// Whether all of it went out. Nothing is thrown when a pipe is closed or a disk is full.
bool print(std::FILE* stream, const std::string& text) {
    return std::fwrite(text.data(), 1, text.size(), stream) == text.size() &&
           std::fflush(stream) == 0;
}

ExitStatus complain(std::string_view sentence) {
    print(stderr, fmt::format("wendlow-connect: {}\n{}", sentence, connect::usage()));
    return wrongUsage;
}

std::optional<std::filesystem::path> realHome() {
    if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/')
        return home;
    if (const passwd* user = ::getpwuid(::getuid()); user != nullptr && *user->pw_dir == '/')
        return user->pw_dir;
    return std::nullopt;
}

/// The connectors that were asked for, in the registry's order, or a word that is no tool's id.
std::expected<Connectors::List, std::string> chosen(const Connectors::List& all,
                                                    const Arguments& arguments) {
    const auto isId = [&](const std::string& word) {
        return std::ranges::any_of(
            all, [&](const auto& connector) { return connector->identity().id == word; });
    };
    for (const std::string& word : arguments.tools)
        if (!isId(word))
            return std::unexpected(word);
    Connectors::List result;
    for (const auto& connector : all)
        if (arguments.tools.empty() || arguments.tools.contains(connector->identity().id))
            result.push_back(connector);
    return result;
}

/// What there is to say of a tool that this environment keeps elsewhere, where `home` is this
/// process's own: the environment of another person's home is not known.
Observations keptElsewhere(const ConnectorIdentity& tool, const std::filesystem::path& home) {
    constexpr struct {
        const char* tool;
        const char* variable;
        const char*
            usual; ///< below the home; none: the variable alone makes the tool look elsewhere
    } places[] = {{"claude-code", "CLAUDE_CONFIG_DIR", nullptr},
                  {"codex", "CODEX_HOME", ".codex"},
                  {"opencode", "XDG_CONFIG_HOME", ".config"}};
    Observations said;
    for (const auto& [id, variable, usual] : places) {
        const char* const value = std::getenv(variable);
        if (id == tool.id && value != nullptr && *value != '\0' && realHome() == home &&
            (usual == nullptr || home / usual != std::filesystem::path(value)))
            said.push_back(
                {value, say("{} keeps {} here, and Wendlow looks in the usual place only", variable,
                            tool.name)});
    }
    return said;
}

/// Does the verb to one tool. Whether it was not refused.
bool perform(Verb verb, const Connector& connector, const std::filesystem::path& home,
             Report& report) {
    const ConnectorIdentity identity = connector.identity();
    switch (verb) {
    case Verb::scan: {
        ScanReport scan = connector.scan();
        append(scan.observations, keptElsewhere(identity, home));
        report.add(scan);
        return true;
    }
    case Verb::projects:
        report.add(identity, connector.projects());
        return true;
    case Verb::memory:
        report.add(identity, connector.memoryFiles());
        return true;
    case Verb::stale:
        report.add(identity, connector.staleOwnWiring());
        return true;
    case Verb::install:
    case Verb::remove: {
        auto outcome = verb == Verb::install ? connector.install() : connector.remove();
        append(outcome.observations, keptElsewhere(identity, home));
        report.add(identity.id, identity.name, outcome);
        return outcome.result != ConnectorOutcome::Result::refused;
    }
    case Verb::converge:
    case Verb::doctor:
    case Verb::help:
        break;
    }
    return true;
}

std::vector<Doctor::SeenTool> seen(const Connectors::List& connectors,
                                   const std::filesystem::path& home) {
    // What a sentence quotes of a file is taken out of it by the shape that it has in English.
    const Translation::InEnglish unspoken;
    std::vector<Doctor::SeenTool> tools;
    for (const auto& connector : connectors) {
        ScanReport scan = connector->scan();
        append(scan.observations, keptElsewhere(scan.identity, home));
        tools.push_back({.scan = std::move(scan), .isStale = connector->staleOwnWiring()});
    }
    return tools;
}

std::string diagnosis(const Connectors::List& connectors, const Doctor::Places& places, bool json) {
    // A person's shell may know no more of the session than a tool's.
    findRuntimeFolder();
    const std::vector<Doctor::SeenTool> tools = seen(connectors, places.home);
    const auto ask = [](const std::vector<GatewayRequest>& questions) {
        constexpr auto patience = std::chrono::seconds(3);
        return GatewayDoor(std::string(ClientInstance::gatewayID),
                           GatewayDoor::Clock::now() + patience)
            .ask(questions);
    };
    const JSONLiteral found = Doctor::examine(places, tools, ask);
    return json ? Doctor::json(found) : Doctor::lines(found);
}

/// Where the program works.
struct Places {
    std::filesystem::path home;
    std::filesystem::path bundle;
};

bool converge(const Connectors::List& connectors, const Places& places, const Arguments& arguments,
              Report& report) {
    auto repairs = Converge::run(connectors);
    // What is retired is no tool any more that could be named.
    if (arguments.tools.empty())
        std::ranges::move(Converge::retire(places.home, places.bundle, arguments.profile,
                                           [&] {
                                               return arguments.isClaudeRunning
                                                          ? *arguments.isClaudeRunning
                                                          : ClaudeDesktop::isRunning();
                                           }),
                          std::back_inserter(repairs));
    if (repairs.empty())
        report.remark(say("nothing needed repair"));
    bool accepted = true;
    for (const auto& [name, outcome] : repairs) {
        report.add(std::nullopt, name, outcome);
        accepted = accepted && outcome.result != ConnectorOutcome::Result::refused;
    }
    return accepted;
}

ExitStatus written(const std::string& report, bool accepted) {
    if (!print(stdout, report)) {
        print(stderr,
              fmt::format("wendlow-connect: {}\n", say("the report could not be written out")));
        return wasRefused;
    }
    return accepted ? succeeded : wasRefused;
}

ExitStatus run(const std::vector<std::string_view>& words) {
    const auto arguments = connect::parse(words);
    if (!arguments)
        return complain(arguments.error());
    if (arguments->verb == Verb::help) {
        return print(stdout, fmt::format("{}{}", connect::usage(), connect::help())) ? succeeded
                                                                                     : wasRefused;
    }
    const auto home = arguments->home ? arguments->home : realHome();
    if (!home)
        return complain(say("no home folder is known, so --home is needed"));
    const auto bundle = arguments->bundle ? arguments->bundle : InstalledBundle::current();
    if (!bundle)
        return complain(say("this program does not lie in an application, so --bundle is needed"));
    const auto applications = arguments->applications.value_or("/Applications");
    const auto connectors = chosen(Connectors::all(*home, *bundle, applications), *arguments);
    if (!connectors)
        return complain(say("there is no tool {}", connectors.error()));

    if (arguments->verb == Verb::doctor)
        return written(diagnosis(*connectors,
                                 {.home = *home, .bundle = *bundle, .applications = applications},
                                 arguments->json),
                       true);
    Report report;
    bool accepted = true;
    if (arguments->verb == Verb::converge)
        accepted = converge(*connectors, {*home, *bundle}, *arguments, report);
    else
        for (const auto& connector : *connectors)
            accepted = perform(arguments->verb, *connector, *home, report) && accepted;
    return written(arguments->json ? report.json() : report.lines(), accepted);
}

} // namespace

int main(int count, char** arguments) {
    const std::vector<std::string_view> words(arguments + std::min(count, 1), arguments + count);
    // JSON is for programs, and speaks English.
    if (std::ranges::count(words, "--json") == 0)
        if (const auto bundle = InstalledBundle::current())
            Translation::begin(*bundle / "Contents/Resources");
    return run(words);
}
