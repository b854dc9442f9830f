#pragma once

#include "FaultyDisk.h"

#include "ConfigFile/Backup.h"
#include "Files.h"
#include "Observation.h"

#include <functional>
#include <memory>

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace wendlow::testing {

/// A file that a program is to change, as it was and as it shall be.
struct SweptFile {
    std::filesystem::path path;
    std::optional<std::string> before;
    std::optional<std::string> after;
    std::string label = path.string(); ///< as the sentences call it
    /// What it may become as well, where a fault keeps something from the program.
    std::optional<std::string> otherwise = after;

    bool isNew(const std::optional<std::string>& bytes) const {
        return bytes == after || bytes == otherwise;
    }
};

/// What a program says became of it.
struct Verdict {
    enum class Kind { committed, refused, nothingDone };

    Kind kind = Kind::nothingDone;
    Observations observations;
};

inline bool hasCopy(const SweptFile& file) {
    return std::ranges::any_of(Backup::all(file.path),
                               [&](const auto& copy) { return get(copy) == file.before; });
}

/// After whatever happened: each file is wholly its old or its new self, and where it is new a copy
/// of its old bytes stands beside it.
inline void expectOldOrNew(const std::vector<SweptFile>& files) {
    for (const auto& file : files) {
        const auto now = get(file.path);
        EXPECT_TRUE(now == file.before || file.isNew(now))
            << file.path << " holds " << now.value_or("nothing").substr(0, 200);
        if (now != file.before && file.before) {
            EXPECT_TRUE(hasCopy(file)) << file.path << " has no way back";
        }
    }
}

/// The sentences against the disk: a commit made every file new; a refusal left every file old but
/// those of which it says otherwise, and of those it kept a copy.
inline void expectTruth(const std::vector<SweptFile>& files, const Verdict& verdict) {
    for (const auto& file : files) {
        const auto saysChanged = std::ranges::any_of(verdict.observations, [&](const auto& one) {
            return one.subject == file.label &&
                   one.text.starts_with("this file was not put back as it was — ");
        });
        const bool isNew = verdict.kind == Verdict::Kind::committed || saysChanged;
        const auto now = get(file.path);
        EXPECT_TRUE(isNew ? file.isNew(now) : now == file.before)
            << file.path << " should be " << (isNew ? "new" : "old") << " and holds "
            << now.value_or("nothing").substr(0, 200);
    }
    for (const auto& said : verdict.observations)
        if (said.text.starts_with("a copy of the file")) {
            EXPECT_TRUE(std::filesystem::exists(said.subject)) << said.subject << ": " << said.text;
        }
}

inline bool hasTemporary(const std::filesystem::path& folder) {
    return std::ranges::any_of(
        std::filesystem::recursive_directory_iterator(folder),
        [](const auto& entry) { return entry.path().extension() == ".tmp"; });
}

/// A program and the world it works on.
struct FaultSweep {
    std::filesystem::path program;
    std::vector<std::string> arguments;
    std::filesystem::path root;    ///< where its disk goes wrong
    std::function<void()> prepare; ///< puts the files below `root` as they were
    std::vector<SweptFile> files;
    std::function<Verdict(const ProgramRun&)> verdict;
    std::string lacks = ""; ///< calls that the disk does not know

    /// Its process, which waits for the next run, and for those of this sweep's copies.
    mutable std::shared_ptr<FaultyProgram> started = nullptr;

    FaultyRun run(DiskFault fault) const {
        std::filesystem::remove_all(root);
        prepare();
        return runAgain(std::move(fault));
    }
    /// The same on what the last run left.
    FaultyRun runAgain(DiskFault fault) const {
        if (!started)
            started = std::make_shared<FaultyProgram>(program, arguments);
        fault.root = root.string();
        fault.lacks = lacks;
        return started->run(fault);
    }

    /// Runs once for every call, with that call going wrong. `only`, where given, says at which.
    void forEachCall(const DiskFault& fault,
                     const std::function<void(const FaultyRun&, const std::string&)>& check,
                     const std::function<bool(const std::string&)>& only = {}) const {
        const auto calls = run({}).calls;
        ASSERT_FALSE(calls.empty());
        for (std::size_t index = 0; index < calls.size(); ++index) {
            if (only && !only(calls[index]))
                continue;
            auto at = fault;
            at.at = static_cast<long>(index) + 1;
            SCOPED_TRACE(
                fmt::format("{}{}{} at call {}: {}", fault.error,
                            fault.lasting == DiskFault::Lasting::once ? "" : " from then on",
                            fault.kill.empty() ? "" : "killed " + fault.kill, at.at, calls[index]));
            const auto finished = run(at);
            EXPECT_FALSE(finished.timedOut);
            check(finished, calls[index]);
            if (::testing::Test::HasFailure())
                return; // one call is enough to see what is wrong
        }
    }

    using Check = std::function<void(const Verdict&)>;

    /// After a run the sentences are true, and where `isSwept` no temporary file is left.
    auto truth(bool isSwept, const Check& further) const {
        return [=, this](const FaultyRun& finished, const std::string&) {
            EXPECT_EQ(finished.signal, 0);
            const auto said = verdict(finished);
            expectOldOrNew(files);
            expectTruth(files, said);
            EXPECT_FALSE(isSwept && hasTemporary(root));
            if (further)
                further(said);
        };
    }

    /// Every call fails once.
    void failEachCall(const std::string& error, const Check& further = {}) const {
        forEachCall({.error = error}, truth(true, further));
    }

    /// From each call on every change fails. A disk that takes no change at all keeps a temporary
    /// file, too; a full one gives it back.
    void failFromEachCall(const std::string& error, const Check& further = {}) const {
        forEachCall({.error = error, .lasting = DiskFault::Lasting::persistent},
                    truth(error == "ENOSPC", further), mayChange);
    }

    void killAtEachCall(const std::string& when, const std::function<void()>& further = {}) const {
        const auto check = [&](const FaultyRun& finished, const std::string&) {
            EXPECT_EQ(finished.signal, SIGKILL);
            expectOldOrNew(files);
            if (further)
                further();
        };
        forEachCall({.kill = when}, check, mayChange);
    }

    /// Between two of these the disk does not change, and a failing look fails only once.
    static bool mayChange(const std::string& call) {
        static constexpr std::array names{"open",   "write",     "fsync",    "fchmod", "chmod",
                                          "rename", "renameat2", "link",     "unlink", "mkdir",
                                          "rmdir",  "fchown",    "fsetxattr"};
        return std::ranges::find(names, call.substr(0, call.find(' '))) != names.end();
    }
};

} // namespace wendlow::testing
