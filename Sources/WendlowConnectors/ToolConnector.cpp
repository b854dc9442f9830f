#include "ToolConnector.h"

#include "ConfigFile/Disk.h"
#include "ConfigFile/Leftovers.h"
#include "HookCommand.h"
#include "Say.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

/// Clears away what a killed verb left beside the files and the receipt; what there is to say of
/// that.
Observations sweep(const std::vector<PlannedFile>& files, const ReceiptStore& receipts,
                   const ConnectorVerb::Surroundings& surroundings) {
    Observations said = Leftovers::sweep(receipts.file, surroundings.now());
    for (const PlannedFile& planned : files)
        append(said, Leftovers::sweep(planned.file.path, surroundings.now()));
    return said;
}

ConnectorOutcome behind(Observations said, ConnectorOutcome outcome) {
    append(said, std::move(outcome.observations));
    outcome.observations = std::move(said);
    return outcome;
}

} // namespace

bool Tool::isHere() const {
    return Disk::isDirectory(directory) || std::ranges::any_of(shownBy, Disk::exists);
}

const ConnectorReceipt& ToolLook::receipt() const {
    if (!m_receipt)
        m_receipt = m_receipts.read();
    return *m_receipt;
}

Observations ToolLook::all(std::initializer_list<std::optional<Observation>> reasons) {
    Observations found;
    for (const auto& reason : reasons)
        if (reason)
            found.push_back(*reason);
    return found;
}

std::unexpected<Observations> ToolLook::refused(const ToolFile& file, std::string text) {
    return std::unexpected(Observations{{file.label, std::move(text)}});
}

std::unexpected<Observations> ToolLook::nothingWritten(const ToolFile& file,
                                                       std::string_view reason) {
    return refused(file, say("nothing was written — {}", reason));
}

ToolConnector::ToolConnector(Tool tool, ConnectorVerb::Surroundings surroundings)
    : m_tool(std::move(tool)), m_surroundings(std::move(surroundings)) {}

ScanReport ToolConnector::scan() const {
    if (m_tool.isHere())
        return ScanJoin::report(shownIdentity(), look(ToolFile::Purpose::scan)->findings());
    Observations said{{m_tool.directory.string(), say("there is no directory here")}};
    if (!m_tool.shownBy.empty())
        said.push_back({m_tool.shownBy.front().string(), say("there is no file here")});
    return {.identity = shownIdentity(),
            .state = ConnectorState::notFound,
            .observations = std::move(said)};
}

ConnectorOutcome ToolConnector::install() const {
    if (auto obstacle = standsInTheWay())
        return ConnectorVerb::refused({*std::move(obstacle)});
    if (!m_tool.isHere())
        return ConnectorVerb::refused(
            {{m_tool.directory.string(),
              say("there is no {} configuration here, so nothing was written",
                  m_tool.identity.name)}});
    const auto here = look(ToolFile::Purpose::plan);
    if (auto reasons = here->refusal(ToolLook::Verb::install); !reasons.empty())
        return ConnectorVerb::refused(std::move(reasons));
    if (m_tool.hookBinary)
        if (auto reason = HookCommand::unusableReason(*m_tool.hookBinary))
            return ConnectorVerb::refused({{m_tool.hookBinary->string(), *std::move(reason)}});
    auto plan = here->installation();
    if (!plan)
        return ConnectorVerb::refused(std::move(plan).error());
    const ReceiptStore receipts{m_tool.receiptFile};
    auto swept = sweep(plan->files, receipts, m_surroundings);
    return behind(std::move(swept), ConnectorVerb::install(*std::move(plan), receipts,
                                                           here->receipt(), m_surroundings));
}

ConnectorOutcome ToolConnector::remove() const {
    const auto here = look(ToolFile::Purpose::plan);
    if (auto reasons = here->refusal(ToolLook::Verb::remove); !reasons.empty())
        return ConnectorVerb::refused(std::move(reasons));
    auto plan = here->removal();
    if (!plan)
        return ConnectorVerb::refused(std::move(plan).error());
    const ReceiptStore receipts{m_tool.receiptFile};
    auto swept = sweep(plan->files, receipts, m_surroundings);
    return behind(std::move(swept),
                  ConnectorVerb::remove(*std::move(plan), receipts, m_surroundings));
}

bool ToolConnector::staleOwnWiring() const {
    if (standsInTheWay())
        return false;
    const auto here = look(ToolFile::Purpose::scan);
    return here->isThisInstallations() &&
           ScanJoin::report({}, here->findings()).state == ConnectorState::drifted;
}

} // namespace wendlow
