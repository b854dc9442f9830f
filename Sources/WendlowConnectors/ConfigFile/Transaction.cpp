#include "ConfigFile/Transaction.h"

#include "ConfigFile/AtomicWrite.h"
#include "ConfigFile/Backup.h"
#include "ConfigFile/Disk.h"

#include <cerrno>
#include <tuple>

namespace wendlow::Transaction {
namespace {

using Path = std::filesystem::path;
using Outcome = std::expected<void, ConfigFileError>;

/// One change under way.
struct Step {
    const FileChange* change;
    std::optional<Path> copy = std::nullopt; ///< of what the commit found at the path
    bool touched = false;                    ///< writing was begun
    bool copyIsKept = false;
};

Outcome outcome(const Path& path, const Disk::Result<void>& result) {
    if (!result)
        return std::unexpected(
            ConfigFileError::writeFailed(path.string(), Disk::words(result.error())));
    return {};
}

/// The folder that a sentence about a missing or closed folder names. As configured, unless the
/// configured path is a link: then the folder meant is the one that the link leads to.
std::string folderLabel(const FileChange& change) {
    const Path label(change.label);
    return (Disk::readLink(label) ? change.path : label).parent_path().string();
}

std::optional<Observation> lookBeforeTouching(const std::vector<Step>& steps) {
    for (const auto& step : steps)
        if (const auto reason = unwritableReason(step.change->path))
            return Observation{reason->folder ? folderLabel(*step.change) : step.change->label,
                               reason->reason};
    return std::nullopt;
}

std::optional<Observation> copyAll(std::vector<Step>& steps, Date date) {
    for (auto& step : steps) {
        auto copy = Backup::make(step.change->path, date);
        if (!copy)
            return Observation{step.change->label,
                               "this file was not copied, so nothing was written — " +
                                   copy.error().description()};
        step.copy = *std::move(copy);
    }
    return std::nullopt;
}

std::optional<Observation> writeAll(std::vector<Step>& steps,
                                    const std::function<void()>& beforeRename) {
    for (auto& step : steps) {
        const auto& [path, label, before, after] = *step.change;
        step.touched = true;
        const auto written = after ? AtomicWrite::write(*after, path, beforeRename)
                                   : outcome(path, Disk::remove(path));
        if (!written)
            return Observation{label, "this file was not written, so nothing was changed — " +
                                          written.error().description()};
    }
    return std::nullopt;
}

/// Puts a file back as the commit found it, by moving the copy over it: that needs no room on a
/// full disk, and brings back the mode too. A file that is as it was found is left alone, so that a
/// failing disk cannot make us say otherwise; and so are bytes that somebody else wrote meanwhile.
Outcome putBack(const Step& step) {
    const auto& [path, label, before, after] = *step.change;
    const auto present = Disk::read(path);
    const bool isFile = present && present->has_value();
    if (step.copy ? isFile && Disk::holds(*step.copy, **present).value_or(false)
                  : present && !present->has_value())
        return {};
    if (isFile && *present != after)
        return std::unexpected(
            ConfigFileError::writeFailed(path.string(), "another program has written it since"));
    if (!step.copy)
        return outcome(path, present ? Disk::remove(path) : std::unexpected(present.error()));
    const auto moved = Disk::rename(*step.copy, path);
    if (!moved && moved.error() == ENOENT && before)
        return AtomicWrite::write(*before, path);
    return outcome(path, moved);
}

/// Ends as a refusal: the failure first, then what could not be put back. An attempt that was
/// undone cleanly leaves no trace, not even its copies.
TransactionResult rollBack(std::vector<Step>& steps, Observation failure) {
    Observations observations{std::move(failure)};
    for (auto& step : steps) {
        if (!step.touched)
            continue;
        const auto restored = putBack(step);
        if (restored)
            continue;
        observations.push_back({step.change->label, "this file was not put back as it was — " +
                                                        restored.error().description()});
        if (step.copy && Disk::exists(*step.copy)) {
            step.copyIsKept = true;
            observations.push_back({step.copy->string(),
                                    "a copy of the file from before the change was kept here, "
                                    "because the file was not put back as it was"});
        }
    }
    for (const auto& step : steps)
        if (step.copy && !step.copyIsKept)
            std::ignore = Disk::remove(*step.copy);
    return {TransactionResult::Refused{std::move(observations)}};
}

} // namespace

TransactionResult commit(const std::vector<FileChange>& changes, Date date,
                         const std::function<void()>& beforeRename) {
    std::vector<Step> steps;
    for (const auto& change : changes)
        if (change.before != change.after)
            steps.push_back({.change = &change});
    if (steps.empty())
        return {TransactionResult::Unchanged{}};
    if (auto reason = lookBeforeTouching(steps))
        return {TransactionResult::Refused{{*std::move(reason)}}};
    if (auto failure = copyAll(steps, date))
        return rollBack(steps, *std::move(failure));
    if (auto failure = writeAll(steps, beforeRename))
        return rollBack(steps, *std::move(failure));

    TransactionResult::Committed committed;
    for (const auto& step : steps) {
        Backup::prune(step.change->path);
        if (!step.copy)
            continue;
        committed.backups.push_back(*step.copy);
        committed.observations.push_back(
            {step.copy->string(), "a copy of the file was made here first"});
    }
    return {std::move(committed)};
}

std::optional<Unwritable> unwritableReason(const Path& path) {
    const auto kind = Disk::kind(path);
    if (kind == Disk::Kind::folder)
        return Unwritable{"there is a directory at this path, so nothing was written"};
    // A device or a pipe would be replaced by a plain file.
    if (kind == Disk::Kind::other || (kind == Disk::Kind::file && !Disk::isWritable(path)))
        return Unwritable{"this file cannot be written by this user, so nothing was written"};
    const auto folder = path.has_parent_path() ? path.parent_path() : Path(".");
    if (!Disk::isDirectory(folder))
        return Unwritable{"this folder is not there, so nothing was written", true};
    if (!Disk::isWritable(folder))
        return Unwritable{"this folder cannot be written by this user, so nothing was written",
                          true};
    return std::nullopt;
}

} // namespace wendlow::Transaction
