#include "ConfigFile/Transaction.h"

#include "ConfigFile/AtomicWrite.h"
#include "ConfigFile/Backup.h"
#include "ConfigFile/Disk.h"
#include "ConfigFile/Replacement.h"
#include "Say.h"

#include <cerrno>
#include <set>
#include <tuple>

#include <fmt/ranges.h>

namespace wendlow::Transaction {
namespace {

using Path = std::filesystem::path;
using Outcome = std::expected<void, ConfigFileError>;

/// One change under way.
struct Step {
    explicit Step(const FileChange& planned)
        : change(&planned), replacement(planned.path, planned.after, planned.born) {}

    const FileChange* change;
    Replacement replacement;
    std::optional<Path> copy;   ///< of what the commit found at the path
    bool copyIsPlanned = false; ///< which is what the plan was made from
    bool touched = false;       ///< it was to be carried out, with whatever success
    bool copyIsKept = false;
};

using Steps = std::vector<Step>;
/// Empty where it went well.
using Failure = std::optional<Observation>;

Outcome outcome(const Path& path, const Disk::Result<void>& result) {
    if (!result)
        return std::unexpected(
            ConfigFileError::writeFailed(path.string(), Disk::words(result.error())));
    return {};
}

Path folderOf(const Path& path) {
    return path.has_parent_path() ? path.parent_path() : Path(".");
}

/// The folder that a sentence about a missing or closed folder names. As configured, unless the
/// configured path is a link: then the folder meant is the one that the link leads to.
std::string folderLabel(const FileChange& change) {
    const Path label(change.label);
    return (Disk::readLink(label) ? change.path : label).parent_path().string();
}

Failure lookBeforeTouching(const Steps& steps) {
    for (const auto& step : steps)
        if (const auto reason = unwritableReason(step.change->path))
            return Observation{reason->folder ? folderLabel(*step.change) : step.change->label,
                               reason->reason};
    return std::nullopt;
}

Failure copyAll(Steps& steps, Date date) {
    for (auto& step : steps) {
        const auto& before = step.change->before;
        step.copyIsPlanned = before && Disk::holds(step.change->path, *before).value_or(false);
        auto copy = step.copyIsPlanned ? Backup::make(step.change->path, date, *before)
                                       : Backup::make(step.change->path, date);
        if (!copy)
            return Observation{step.change->label,
                               say("this file was not copied, so nothing was written — {}",
                                   copy.error().description())};
        step.copy = *std::move(copy);
    }
    return std::nullopt;
}

Observation notWritten(const FileChange& change, const ConfigFileError& error) {
    return {change.label,
            say("this file was not written, so nothing was changed — {}", error.description())};
}

Failure prepareAll(Steps& steps) {
    for (auto& step : steps)
        if (const auto prepared = step.replacement.prepare(); !prepared)
            return notWritten(*step.change, prepared.error());
    return std::nullopt;
}

Failure carryOutAll(Steps& steps, const std::function<void()>& beforeRename) {
    for (auto& step : steps) {
        step.touched = true;
        if (beforeRename && step.change->after)
            beforeRename();
        if (const auto done = step.replacement.carryOut(); !done)
            return notWritten(*step.change, done.error());
    }
    return std::nullopt;
}

/// Until a folder is flushed, a power cut may bring the file from before back under a name.
Failure flushAll(const Steps& steps) {
    std::set<Path> flushed;
    for (const auto& step : steps) {
        const auto folder = folderOf(step.change->path);
        if (!flushed.insert(folder).second)
            continue;
        if (const auto done = outcome(step.change->path, Disk::flushFolder(folder)); !done)
            return notWritten(*step.change, done.error());
    }
    return std::nullopt;
}

/// What each new file will lack of what the old one has beside its bytes, and whom it leaves
/// behind.
Observations warnings(const Steps& steps) {
    Observations said;
    for (const auto& step : steps) {
        const auto& label = step.change->label;
        if (const auto& lacks = step.replacement.lacks(); !lacks.empty())
            said.push_back({label, say("this user could not keep everything that this file has "
                                       "beside its bytes — {}",
                                       fmt::join(lacks, ", "))});
        if (step.replacement.leavesLinks())
            said.push_back({label, say("this file has other names (hard links), which keep what "
                                       "it held before")});
    }
    return said;
}

/// Tried twice: what stands there may be private, and nobody comes by again before the next verb.
void forget(const Path& aside) {
    if (!Disk::remove(aside))
        std::ignore = Disk::remove(aside);
}

/// Whether the copy is of the file that was set aside. `isPlanned`: that is what the plan was made
/// from, so that its bytes need not be read once more.
bool copyHolds(const Step& step, const Path& aside, bool isPlanned) {
    if (!step.copy)
        return false;
    if (isPlanned && step.copyIsPlanned)
        return Disk::exists(*step.copy);
    const auto bytes = Disk::read(aside);
    return bytes && *bytes && Disk::holds(*step.copy, **bytes).value_or(false);
}

/// Removes what was set aside where the copy holds it; what another program wrote since becomes a
/// copy of its own. That is told, unless it is what the plan was made from.
Failure settle(const Step& step, Date date) {
    constexpr auto theirs = sayLater("another program wrote to the file since it was read, and "
                                     "what it wrote is kept here");
    const auto& aside = step.replacement.aside();
    const auto& [path, label, before, after, born] = *step.change;
    if (!aside)
        return std::nullopt;
    const auto isPlanned = before ? Disk::holds(*aside, *before) : Disk::Result<bool>(false);
    if (isPlanned && copyHolds(step, *aside, *isPlanned)) {
        forget(*aside);
        return *isPlanned ? Failure() : Observation{step.copy->string(), say(theirs)};
    }
    const auto kept = Backup::adopt(*aside, path, date);
    return Observation{(kept ? *kept : *aside).string(),
                       isPlanned ? say(theirs)
                                 : say("what the file held last could not be read again, and is "
                                       "kept here")};
}

Outcome writtenSince(const Path& path) {
    return std::unexpected(
        ConfigFileError::writeFailed(path.string(), say("another program has written it since")));
}

/// Puts a file back that was not set aside, as the commit found it, by moving the copy over it:
/// that needs no room on a full disk, and brings back the mode too. A file that is as it was found
/// is left alone, so that a failing disk cannot make us say otherwise; and so are bytes that
/// somebody else wrote meanwhile. That a file cannot be read does not make it another.
Outcome putCopyBack(const Step& step) {
    const auto& [path, label, before, after, born] = *step.change;
    const auto present = Disk::read(path);
    const bool isFile = present && present->has_value();
    if (!present && present.error() != EISDIR && present.error() != ENOTSUP)
        return {};
    if (step.copy && isFile && Disk::holds(*step.copy, **present).value_or(true))
        return {};
    if (!step.copy && present && !isFile)
        return {};
    if (isFile && *present != after)
        return writtenSince(path);
    if (!step.copy)
        return outcome(path, present ? Disk::remove(path) : std::unexpected(present.error()));
    const auto moved = Disk::rename(*step.copy, path);
    if (!moved && moved.error() == ENOENT && before)
        return AtomicWrite::write(*before, path);
    return outcome(path, moved);
}

Outcome putBack(Step& step) {
    if (step.replacement.isDone() && !step.replacement.hasLostFormer())
        return step.replacement.undo();
    return putCopyBack(step);
}

/// Ends as a refusal: the failure first, then what could not be put back. An attempt that was
/// undone cleanly leaves no trace, not even its copies.
TransactionResult rollBack(Steps& steps, Observation failure, Date date) {
    Observations observations{std::move(failure)};
    for (auto& step : steps) {
        if (!step.touched)
            continue;
        const auto restored = putBack(step);
        if (restored) {
            if (auto kept = settle(step, date))
                observations.push_back(*std::move(kept));
            continue;
        }
        observations.push_back({step.change->label, say("this file was not put back as it was — {}",
                                                        restored.error().description())});
        if (step.copy && Disk::exists(*step.copy)) {
            step.copyIsKept = true;
            observations.push_back(
                {step.copy->string(), say("a copy of the file from before the change was kept "
                                          "here, because the file was not put back as it was")});
        }
        if (auto kept = settle(step, date))
            observations.push_back(*std::move(kept));
    }
    for (const auto& step : steps)
        if (step.copy && !step.copyIsKept)
            std::ignore = Disk::remove(*step.copy);
    return {TransactionResult::Refused{std::move(observations)}};
}

} // namespace

TransactionResult commit(const std::vector<FileChange>& changes, Date date,
                         const std::function<void()>& beforeRename) {
    Steps steps;
    for (const auto& change : changes)
        if (change.before != change.after)
            steps.emplace_back(change);
    if (steps.empty())
        return {TransactionResult::Unchanged{}};
    if (auto reason = lookBeforeTouching(steps))
        return {TransactionResult::Refused{{*std::move(reason)}}};
    if (auto failure = copyAll(steps, date))
        return rollBack(steps, *std::move(failure), date);
    if (auto failure = prepareAll(steps))
        return rollBack(steps, *std::move(failure), date);
    TransactionResult::Committed committed{.backups = {}, .observations = warnings(steps)};
    if (auto failure = carryOutAll(steps, beforeRename))
        return rollBack(steps, *std::move(failure), date);
    if (auto failure = flushAll(steps))
        return rollBack(steps, *std::move(failure), date);

    for (const auto& step : steps) {
        auto kept = settle(step, date);
        Backup::prune(step.change->path);
        if (step.copy) {
            committed.backups.push_back(*step.copy);
            committed.observations.push_back(
                {step.copy->string(), say("a copy of the file was made here first")});
        }
        if (kept)
            committed.observations.push_back(*std::move(kept));
    }
    return {std::move(committed)};
}

std::optional<Unwritable> unwritableReason(const Path& path) {
    const auto kind = Disk::kind(path);
    if (kind == Disk::Kind::folder)
        return Unwritable{say("there is a directory at this path, so nothing was written")};
    // A device or a pipe would be replaced by a plain file.
    if (kind == Disk::Kind::other || (kind == Disk::Kind::file && !Disk::isWritable(path)))
        return Unwritable{say("this file cannot be written by this user, so nothing was written")};
    const auto folder = folderOf(path);
    if (!Disk::isDirectory(folder))
        return Unwritable{say("this folder is not there, so nothing was written"), true};
    if (!Disk::isWritable(folder))
        return Unwritable{say("this folder cannot be written by this user, so nothing was written"),
                          true};
    return std::nullopt;
}

} // namespace wendlow::Transaction
