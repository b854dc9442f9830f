#include "ConnectorVerb.h"

#include <utility>

#include <fmt/format.h>

namespace wendlow::ConnectorVerb {

namespace {

using Result = ConnectorOutcome::Result;

struct FileFate {
    std::string label;
    bool changes;
};

/// Moves the plan into the transaction; large files are not copied on the way.
TransactionResult commit(std::vector<PlannedFile> files, const Surroundings& surroundings) {
    std::vector<FileChange> changes;
    for (PlannedFile& planned : files)
        if (planned.changes())
            changes.push_back({.path = std::move(planned.file.path),
                               .label = std::move(planned.file.label),
                               .before = std::move(planned.file.bytes),
                               .after = std::move(planned.after)});
    return Transaction::commit(changes, surroundings.now(), surroundings.beforeRename);
}

std::vector<FileFate> fates(const std::vector<PlannedFile>& files) {
    std::vector<FileFate> result;
    result.reserve(files.size());
    for (const PlannedFile& planned : files)
        result.push_back({planned.file.label, planned.changes()});
    return result;
}

/// The changed files first, then the others.
void sayFates(const std::vector<FileFate>& files, std::string_view changedText,
              Observations& observations) {
    for (const FileFate& file : files)
        if (file.changes)
            observations.push_back({file.label, std::string(changedText)});
    for (const FileFate& file : files)
        if (!file.changes)
            observations.push_back({file.label, "nothing in this file needed changing"});
}

/// The outcome of anything but a commit.
ConnectorOutcome notCommitted(TransactionResult& result, const std::vector<FileFate>& files) {
    if (auto* refusal = std::get_if<TransactionResult::Refused>(&result.outcome))
        return refused(std::move(refusal->observations));
    ConnectorOutcome outcome{.result = Result::unchanged, .observations = {}, .backups = {}};
    sayFates(files, "", outcome.observations);
    return outcome;
}

ConnectorOutcome changed(TransactionResult::Committed& committed) {
    return {.result = Result::changed,
            .observations = std::move(committed.observations),
            .backups = std::move(committed.backups)};
}

} // namespace

ConnectorOutcome refused(Observations observations) {
    return {.result = Result::refused, .observations = std::move(observations), .backups = {}};
}

ConnectorOutcome refused(const PlanFailure& failure) {
    return refused(Observations{{failure.file, failure.reason}});
}

ConnectorOutcome install(std::vector<PlannedFile> files, const std::set<Created>& created,
                         const ReceiptStore& receipts, const Surroundings& surroundings) {
    const auto said = fates(files);
    auto result = commit(std::move(files), surroundings);
    auto* committed = std::get_if<TransactionResult::Committed>(&result.outcome);
    if (committed == nullptr)
        return notCommitted(result, said);
    ConnectorOutcome outcome = changed(*committed);
    ConnectorReceipt receipt = receipts.read();
    receipt.created.insert(created.begin(), created.end());
    if (const auto written = receipts.write(receipt); !written)
        outcome.observations.push_back(
            {receipts.file.string(),
             fmt::format("the record of what was created was not written here — {}",
                         written.error())});
    sayFates(said, "the Wendlow entry was written to this file", outcome.observations);
    return outcome;
}

ConnectorOutcome remove(std::vector<PlannedFile> files, Observations notes,
                        const ReceiptStore& receipts, const Surroundings& surroundings) {
    const auto said = fates(files);
    auto result = commit(std::move(files), surroundings);
    auto* committed = std::get_if<TransactionResult::Committed>(&result.outcome);
    if (committed == nullptr)
        return notCommitted(result, said);
    receipts.remove();
    ConnectorOutcome outcome = changed(*committed);
    std::ranges::move(notes, std::back_inserter(outcome.observations));
    sayFates(said, "the Wendlow entry was removed from this file", outcome.observations);
    return outcome;
}

PlannedFile planInstallation(ToolFile file, InstalledBlock installed) {
    const bool edited = installed.bytes.has_value();
    return {.file = std::move(file), .edited = edited, .after = std::move(installed.bytes)};
}

PlannedFile planRemoval(ToolFile file, RemovedBlock removed, bool createdByUs,
                        bool (*isEmpty)(std::string_view bytes), Observations& notes) {
    for (std::string& leftover : removed.leftovers)
        notes.push_back({file.label, std::move(leftover)});
    const bool edited = removed.bytes.has_value();
    PlannedFile planned{
        .file = std::move(file), .edited = edited, .after = std::move(removed.bytes)};
    const auto& remaining = edited ? planned.after : planned.file.bytes;
    if (!remaining || !isEmpty(*remaining))
        return planned;
    if (createdByUs) {
        planned.edited = true;
        planned.after = std::nullopt;
        notes.push_back(
            {planned.file.label, "this file was created when Wendlow connected and was removed"});
    } else if (planned.changes()) {
        notes.push_back({planned.file.label,
                         "this file is now empty and remains, because Wendlow did not create it"});
    }
    return planned;
}

} // namespace wendlow::ConnectorVerb
