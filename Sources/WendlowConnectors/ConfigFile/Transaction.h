#pragma once

#include "Observation.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include <sys/types.h>

namespace wendlow {

/// One planned change of one file.
struct FileChange {
    std::filesystem::path path;        ///< canonical: all file operations use this
    std::string label;                 ///< the path as configured, for sentences
    std::optional<std::string> before; ///< bytes when the plan was made; nothing: no file
    std::optional<std::string> after;  ///< bytes it should have; nothing: deleted
    mode_t born = 0666;                ///< the most that a file that is made may permit
};

/// What became of a commit.
struct TransactionResult {
    struct Committed {
        std::vector<std::filesystem::path> backups;
        Observations observations;
        bool operator==(const Committed&) const = default;
    };
    struct Refused {
        Observations observations; ///< nothing remains changed, or these say exactly what does
        bool operator==(const Refused&) const = default;
    };
    struct Unchanged {
        bool operator==(const Unchanged&) const = default;
    };

    std::variant<Committed, Refused, Unchanged> outcome;
};

/// The only road by which a tool's file changes: looks first, copies first, writes everything
/// beside the files, puts each in its place at once, and puts back what it replaced when a later
/// one fails. What another program wrote until the last moment is kept as a copy, and told.
namespace Transaction {

using Date = std::chrono::system_clock::time_point;

/// Why nothing can be written at a path.
struct Unwritable {
    std::string reason;
    bool folder = false; ///< the reason is about the folder that holds the path
    bool operator==(const Unwritable&) const = default;
};

/// Never fails in another way: every failure is a refusal with its sentences. Blocks on the disk.
TransactionResult commit(const std::vector<FileChange>& changes, Date date,
                         const std::function<void()>& beforeRename = {});

std::optional<Unwritable> unwritableReason(const std::filesystem::path& path);

} // namespace Transaction
} // namespace wendlow
