#include "Converge.h"

#include "Say.h"

#include <algorithm>
#include <iterator>

namespace wendlow::Converge {

namespace {

ConnectorOutcome retired(const ClaudeChatRetirement& retirement,
                         const IsClaudeRunning& isClaudeRunning) {
    if (!isClaudeRunning())
        return retirement.retire();
    return {.result = ConnectorOutcome::Result::unchanged,
            .observations = {{retirement.paths.configFile.string(),
                              say("Claude is running, so this file was left as it is until Claude "
                                  "quits")}},
            .backups = {}};
}

} // namespace

std::vector<Repair> run(const std::filesystem::path& home, const std::filesystem::path& bundle,
                        const std::filesystem::path& applications, Connectors::Profile profile,
                        const IsClaudeRunning& isClaudeRunning) {
    auto repairs = run(Connectors::all(home, bundle, applications));
    std::ranges::move(retire(home, bundle, profile, isClaudeRunning), std::back_inserter(repairs));
    return repairs;
}

std::vector<Repair> run(const Connectors::List& connectors) {
    std::vector<Repair> repairs;
    for (const auto& connector : connectors)
        if (connector->staleOwnWiring())
            repairs.push_back({connector->identity().name, connector->install()});
    return repairs;
}

std::vector<Repair> retire(const std::filesystem::path& home, const std::filesystem::path& bundle,
                           Connectors::Profile profile, const IsClaudeRunning& isClaudeRunning) {
    std::vector<Repair> repairs;
    for (const auto& retirement : Connectors::retirements(home, bundle, profile))
        repairs.push_back(
            {std::string(ClaudeChatRetirement::name), retired(retirement, isClaudeRunning)});
    return repairs;
}

} // namespace wendlow::Converge
