#include "ScanJoin.h"

#include <algorithm>
#include <utility>

namespace wendlow::ScanJoin {

ConnectorState state(std::span<const BlockFinding> findings) {
    const auto connected = [](const BlockFinding& finding) {
        return finding.is<BlockFinding::Connected>();
    };
    const auto ours = [&](const BlockFinding& finding) {
        return connected(finding) || finding.is<BlockFinding::Drifted>();
    };
    if (std::ranges::all_of(findings, connected))
        return ConnectorState::connected;
    return std::ranges::any_of(findings, ours) ? ConnectorState::drifted : ConnectorState::found;
}

ScanReport report(ConnectorIdentity identity, const std::vector<BlockReport>& blocks,
                  Observations more) {
    std::vector<BlockFinding> findings;
    Observations said;
    for (const auto& [finding, subject] : blocks) {
        findings.push_back(finding);
        append(said, observations(finding, subject));
    }
    append(said, std::move(more));
    return {
        .identity = std::move(identity), .state = state(findings), .observations = folded(said)};
}

ScanReport notFound(ConnectorIdentity identity, const std::filesystem::path& directory) {
    return {.identity = std::move(identity),
            .state = ConnectorState::notFound,
            .observations = {{directory.string(), "there is no directory here"}}};
}

ScanReport notFound(ConnectorIdentity identity, const std::filesystem::path& directory,
                    const std::filesystem::path& file) {
    ScanReport report = notFound(std::move(identity), directory);
    report.observations.push_back({file.string(), "there is no file here"});
    return report;
}

} // namespace wendlow::ScanJoin
