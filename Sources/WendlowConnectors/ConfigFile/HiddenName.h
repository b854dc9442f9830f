#pragma once

#include "ConfigFile/Disk.h"

#include <optional>
#include <string_view>

/// Names of the hidden files that stand beside a file while it is written:
/// `.<name>.wendlow-<UUID>-<process>[-<number>].tmp`. They are made and recognised here and nowhere
/// else. A name tells what to make of a file whose process was killed.
namespace wendlow::HiddenName {

struct Parts {
    pid_t process = 0; ///< who made it
    /// The number of the file that the process wrote. A file of another number under this name is
    /// what that one replaced: somebody's. Nothing: the file was still being written.
    std::optional<ino_t> written;

    bool operator==(const Parts&) const = default;
};

/// A name that nobody has, of this process.
Disk::Result<Disk::Path> unique(const Disk::Path& file);
/// The same name, once the file under it is written and has this number; 0 for a file that was
/// there before.
Disk::Path numbered(const Disk::Path& hidden, ino_t number);
/// What a name says that is one of `file`'s.
std::optional<Parts> parts(std::string_view name, const Disk::Path& file);

} // namespace wendlow::HiddenName
