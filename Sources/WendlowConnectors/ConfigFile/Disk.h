#pragma once

#include <array>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace wendlow {

/// The one seam between the connectors and the file system: every system call that a scan or a
/// commit makes is made here, so that a test can stand at the same door. Failures are `errno`
/// values; `Disk::words` puts them in the system's own words. Blocks; any thread.
namespace Disk {

using Path = std::filesystem::path;
template<class T> using Result = std::expected<T, int>;

std::string words(int error);

/// The whole file, or nothing when there is none at this path (a dangling link counts as none).
/// Any other failure is an error, and so is anything that is not a file: a directory, a pipe, a
/// device. Never waits for a writer.
Result<std::optional<std::string>> read(const Path& path);
/// The same of a file that is there, with where it really lies, every link resolved. Any failure is
/// an error, which then says no more than that it was not to be had in one go.
struct Found {
    Path path;
    std::string bytes;
};
Result<Found> readWhereItLies(const Path& path);
/// What stands before the file's first line feed; nothing where there is none among its first
/// `limit` bytes. Reads little more than that line, however large the file is.
Result<std::optional<std::string>> firstLine(const Path& path, std::size_t limit);
/// Whether the file holds exactly `bytes`. Compares piece by piece, without a second copy in
/// memory.
Result<bool> holds(const Path& path, std::string_view bytes);

/// What stands at a path, links followed. What cannot be looked at counts as nothing.
enum class Kind { nothing, file, folder, other };
Kind kind(const Path& path);

bool exists(const Path& path);      ///< anything stands there, links followed
bool isDirectory(const Path& path); ///< links followed
bool isWritable(const Path& path);  ///< by this user
bool isRunnable(const Path& path);  ///< a file that this user may run

Result<mode_t> mode(const Path& path); ///< the permission bits
Result<void> setMode(const Path& path, mode_t mode);

/// How the mode of a new file is meant.
enum class ModeRule {
    exact,  ///< these bits, whatever the umask
    masked, ///< at most these bits: the umask takes away what it does from every new file
};

/// Writes a file that must not be there yet, flushed to the disk; at no moment does it have more
/// than `mode`. On failure nothing is left at `path` unless removing it failed too.
Result<void> create(const Path& path, std::string_view bytes, mode_t mode,
                    ModeRule rule = ModeRule::exact);

/// What a file has beside its bytes.
struct Attributes {
    struct Extended {
        std::string name;
        std::string value;
    };
    mode_t mode = 0; ///< the permission bits
    uid_t owner = 0;
    gid_t group = 0;
    nlink_t names = 1;              ///< how many hard links lead to it
    std::vector<Extended> extended; ///< access lists among them
    bool areAllKnown = true;        ///< false: `extended` could not be read
};
Result<Attributes> attributes(const Path& path); ///< links followed
/// Gives an open file of ours what another has, as far as this user may, and says what it could not
/// give, as in "its owner". At no moment may anybody do more with it than with the other.
std::vector<std::string> give(int file, const Attributes& like);
/// Writes a file as `create` does, with what another one has, and says as `give` does what it
/// lacks.
Result<std::vector<std::string>> createLike(const Path& path, std::string_view bytes,
                                            const Attributes& like);

/// The number by which a file is known whatever it is called. EISDIR and ENOTSUP: a folder, or a
/// link or something else that is no file, stands there.
Result<ino_t> number(const Path& path);
Result<void> rename(const Path& from, const Path& to);
/// The same where nothing stands yet; EEXIST where something does.
Result<void> renameToNew(const Path& from, const Path& to);

/// What became of what a file replaced.
struct Former {
    enum class Fate {
        absent,   ///< nothing stood there
        setAside, ///< it stands at `aside`
        lost,     ///< it is gone: the file system can neither exchange files nor link them
    };
    Fate fate = Fate::absent;
    Path aside;
};
/// Puts the file `from` in the place of the file at `path`, or where none is, and sets what it
/// replaces aside, all at once. `spare`, which must not be there, is a name to help with. What is
/// no file is not replaced.
Result<Former> replace(const Path& from, const Path& path, const Path& spare);
/// Moves a file to `aside`, which must not be there. ENOENT: there is none.
Result<void> takeAway(const Path& path, const Path& aside);
Result<void> remove(const Path& path);       ///< a file; ENOENT is an error
Result<void> removeFolder(const Path& path); ///< an empty one; any other is an error
/// Makes the folder and those above it that are missing, each with exactly `mode`. Folders that are
/// there stay as they are.
Result<void> createDirectories(const Path& path, mode_t mode);

/// Who made a folder.
enum class Made {
    now,    ///< this call
    before, ///< somebody else: it was there
};
/// Makes the folder, with exactly `mode`, in one that is there.
Result<Made> makeFolder(const Path& path, mode_t mode);

/// The names in a folder, sorted by bytes; an unreadable folder is an error.
Result<std::vector<std::string>> names(const Path& folder);
/// The files anywhere below a folder whose names end in `suffix` and say more than that, in no
/// order. Links to files count, links to folders are not entered. What cannot be listed is left
/// out.
std::vector<Path> filesBelow(const Path& folder, std::string_view suffix);
/// Flushes a folder's entries to the disk, where its file system can do that.
Result<void> flushFolder(const Path& folder);

Result<Path> realPath(const Path& path); ///< every link resolved; everything on the way exists
Result<Path> readLink(const Path& path); ///< what a link says; EINVAL when this is no link

/// Whether a process of this number runs that is not this one. One that cannot be asked runs.
bool isRunningElsewhere(pid_t process);

/// Random bits from the kernel.
Result<std::array<std::uint8_t, 16>> random();

} // namespace Disk
} // namespace wendlow
