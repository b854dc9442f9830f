#include "ConnectorVerb.h"

#include "ConfigFile/Backup.h"
#include "Say.h"

#include <algorithm>
#include <ranges>
#include <utility>

namespace wendlow::ConnectorVerb {

namespace {

using Result = ConnectorOutcome::Result;

struct FileFate {
    std::filesystem::path path;
    std::string label;
    std::optional<OurPart> what;
    std::vector<std::string> lost;
    bool changes;
    bool heldOurs;
};

/// Moves the plan into the transaction; large files are not copied on the way.
TransactionResult commit(std::vector<PlannedFile> files, const Surroundings& surroundings) {
    std::vector<FileChange> changes;
    for (PlannedFile& planned : files)
        if (planned.changes())
            changes.push_back({.path = std::move(planned.file.path),
                               .label = std::move(planned.file.label),
                               .before = std::move(planned.file.bytes),
                               .after = std::move(planned.after),
                               .born = planned.born});
    return Transaction::commit(changes, surroundings.now(), surroundings.beforeRename);
}

std::vector<FileFate> fates(const std::vector<PlannedFile>& files) {
    std::vector<FileFate> result;
    result.reserve(files.size());
    for (const PlannedFile& planned : files)
        result.push_back({planned.file.path, planned.file.label, planned.what, planned.lost,
                          planned.changes(), planned.heldOurs});
    return result;
}

/// What went that others had written, and where they find it.
void sayLost(const std::vector<FileFate>& files, const std::vector<std::filesystem::path>& copies,
             Observations& observations) {
    for (const FileFate& file : files) {
        const auto copy = std::ranges::find_if(copies, [&](const std::filesystem::path& each) {
            return each.parent_path() == file.path.parent_path() &&
                   Backup::isCopy(each.filename().string(), file.path);
        });
        if (!file.changes || copy == copies.end())
            continue;
        for (const std::string& lost : file.lost)
            observations.push_back(
                {file.label, say("{}; the copy {} has all of it", lost, copy->string())});
    }
}

std::string writtenWords(std::optional<OurPart> what) {
    if (what == OurPart::serverEntry)
        return say("the Wendlow MCP server entry was written to this file");
    if (what == OurPart::plugin)
        return say("the Wendlow plugin was written to this file");
    return say("the Wendlow entry was written to this file");
}

std::string removedWords(std::optional<OurPart> what) {
    if (what == OurPart::serverEntry)
        return say("the Wendlow MCP server entry was removed from this file");
    if (what == OurPart::plugin)
        return say("the Wendlow plugin was removed from this file");
    return say("the Wendlow entry was removed from this file");
}

/// `words` are for a file that was changed.
void sayFates(const std::vector<FileFate>& files, std::string (*words)(std::optional<OurPart>),
              Observations& observations, FileOrder order = FileOrder::changedFirst) {
    const auto add = [&](const FileFate& file) {
        if (file.changes && !file.heldOurs)
            return; // what became of it has been said
        observations.push_back({file.label, file.changes
                                                ? words(file.what)
                                                : say("nothing in this file needed changing")});
    };
    if (order == FileOrder::asPlanned) {
        std::ranges::for_each(files, add);
        return;
    }
    std::ranges::for_each(files | std::views::filter(&FileFate::changes), add);
    std::ranges::for_each(files | std::views::filter(std::not_fn(&FileFate::changes)), add);
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

void Installation::add(ToolFile toolFile, InstalledBlock installed, const FileRole& role) {
    created.merge(installed.created);
    if (!toolFile.bytes)
        created.insert(role.file);
    const bool edited = installed.bytes.has_value();
    files.push_back({.file = std::move(toolFile),
                     .what = role.what,
                     .born = role.born,
                     .edited = edited,
                     .after = std::move(installed.bytes),
                     .lost = std::move(installed.lost)});
}

void Removal::add(ToolFile file, RemovedBlock removed, const FileRole& role,
                  const std::set<Created>& created) {
    for (std::string& leftover : removed.leftovers)
        notes.push_back({file.label, std::move(leftover)});
    const bool edited = removed.bytes.has_value();
    PlannedFile& planned = files.emplace_back(PlannedFile{.file = std::move(file),
                                                          .what = role.what,
                                                          .edited = edited,
                                                          .after = std::move(removed.bytes),
                                                          .lost = std::move(removed.lost),
                                                          .heldOurs = edited && removed.heldOurs});
    const auto& remaining = edited ? planned.after : planned.file.bytes;
    if (!remaining)
        return;
    if (created.contains(role.file) && role.isLeftover(*remaining)) {
        planned.edited = true;
        planned.after = std::nullopt;
        notes.push_back({planned.file.label,
                         say("this file was created when Wendlow connected and was removed")});
        return;
    }
    if (!planned.changes())
        return;
    if (!planned.heldOurs && planned.lost.empty())
        notes.push_back(
            {planned.file.label, say("a container that was created when Wendlow connected and was "
                                     "empty was removed from this file")});
    if (role.isEmpty(*remaining))
        notes.push_back({planned.file.label, say(role.emptyWords)});
}

ConnectorOutcome install(Installation installation, const ReceiptStore& receipts,
                         ConnectorReceipt receipt, const Surroundings& surroundings) {
    const auto said = fates(installation.files);
    auto result = commit(std::move(installation.files), surroundings);
    if (auto* refusal = std::get_if<TransactionResult::Refused>(&result.outcome))
        return refused(std::move(refusal->observations));
    auto* committed = std::get_if<TransactionResult::Committed>(&result.outcome);
    ConnectorOutcome outcome = committed != nullptr ? changed(*committed) : ConnectorOutcome{};
    if (committed != nullptr)
        sayLost(said, outcome.backups, outcome.observations);
    append(outcome.observations, std::move(installation.planNotes));
    if (committed != nullptr) {
        if (installation.folder)
            installation.folder->keep();
        receipt.created.merge(installation.created);
        receipt.adopted.merge(installation.adopted);
        if (installation.trustSlots)
            receipt.trustSlots = *std::move(installation.trustSlots);
        if (installation.appVersion)
            receipt.appVersion = std::move(installation.appVersion);
        if (const auto written = receipts.write(receipt); !written)
            outcome.observations.push_back(
                {receipts.file.string(),
                 say("the record of what was created was not written here — {}", written.error())});
    }
    sayFates(said, writtenWords, outcome.observations, installation.order);
    append(outcome.observations, std::move(installation.notes));
    return outcome;
}

ConnectorOutcome remove(Removal removal, const ReceiptStore& receipts,
                        const Surroundings& surroundings) {
    const auto said = fates(removal.files);
    auto result = commit(std::move(removal.files), surroundings);
    if (auto* refusal = std::get_if<TransactionResult::Refused>(&result.outcome))
        return refused(std::move(refusal->observations));
    ConnectorOutcome outcome;
    if (auto* committed = std::get_if<TransactionResult::Committed>(&result.outcome)) {
        outcome = changed(*committed);
        sayLost(said, outcome.backups, outcome.observations);
        append(outcome.observations, std::move(removal.notes));
        if (removal.afterwards)
            append(outcome.observations, removal.afterwards());
        receipts.remove();
    }
    sayFates(said, removedWords, outcome.observations);
    return outcome;
}

} // namespace wendlow::ConnectorVerb
