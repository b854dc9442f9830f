#include "ConnectorVerb.h"

#include <ranges>
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

void sayFates(const std::vector<FileFate>& files, std::string_view changedText,
              Observations& observations, FileOrder order = FileOrder::changedFirst) {
    const auto say = [&](const FileFate& file) {
        observations.push_back({file.label, file.changes ? std::string(changedText)
                                                         : "nothing in this file needed changing"});
    };
    if (order == FileOrder::asPlanned) {
        std::ranges::for_each(files, say);
        return;
    }
    std::ranges::for_each(files | std::views::filter(&FileFate::changes), say);
    std::ranges::for_each(files | std::views::filter(std::not_fn(&FileFate::changes)), say);
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

PlanFailure nothingWritten(const ToolFile& file, std::string_view reason) {
    return {file.label, fmt::format("nothing was written — {}", reason)};
}

std::optional<ConnectorOutcome> readingRefusal(std::vector<std::optional<Observation>> reasons) {
    Observations observations;
    for (auto& reason : reasons)
        if (reason)
            observations.push_back(*std::move(reason));
    if (observations.empty())
        return std::nullopt;
    return refused(std::move(observations));
}

void Installation::add(ToolFile toolFile, InstalledBlock installed, Created file) {
    created.merge(installed.created);
    if (!toolFile.bytes)
        created.insert(file);
    const bool edited = installed.bytes.has_value();
    files.push_back(
        {.file = std::move(toolFile), .edited = edited, .after = std::move(installed.bytes)});
}

ConnectorOutcome install(Installation installation, const ReceiptStore& receipts,
                         const Surroundings& surroundings) {
    const auto said = fates(installation.files);
    auto result = commit(std::move(installation.files), surroundings);
    auto* committed = std::get_if<TransactionResult::Committed>(&result.outcome);
    ConnectorOutcome outcome =
        committed == nullptr ? notCommitted(result, said) : changed(*committed);
    if (committed != nullptr) {
        ConnectorReceipt receipt = receipts.read();
        receipt.created.merge(installation.created);
        if (installation.trustSlots)
            receipt.trustSlots = *std::move(installation.trustSlots);
        if (installation.appVersion)
            receipt.appVersion = std::move(installation.appVersion);
        std::ranges::move(installation.overwritten, std::back_inserter(outcome.observations));
        if (const auto written = receipts.write(receipt); !written)
            outcome.observations.push_back(
                {receipts.file.string(),
                 fmt::format("the record of what was created was not written here — {}",
                             written.error())});
        sayFates(said, "the Wendlow entry was written to this file", outcome.observations,
                 installation.order);
    }
    if (outcome.result != Result::refused)
        std::ranges::move(installation.notes, std::back_inserter(outcome.observations));
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

PlannedFile planRemoval(ToolFile file, RemovedBlock removed, bool createdByUs,
                        bool (*isEmpty)(std::string_view bytes), Observations& notes,
                        std::string_view emptyWords) {
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
                         fmt::format("this file {} and remains, because Wendlow did not create it",
                                     emptyWords)});
    }
    return planned;
}

} // namespace wendlow::ConnectorVerb
