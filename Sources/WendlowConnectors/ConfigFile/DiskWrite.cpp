#include "ConfigFile/DiskCalls.h"

#include <cerrno>
#include <cstdio>
#include <tuple>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace wendlow::Disk {
namespace {

Result<void> writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count =
            uninterrupted([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
        if (count < 0)
            return lastError();
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return {};
}

Result<void> flush(int descriptor) {
    const int status = uninterrupted([&] { return ::fsync(descriptor); });
    // Some file systems cannot flush a folder, and say so; that is no failing disk.
    if (status != 0 && errno != EINVAL && errno != ENOTSUP)
        return lastError();
    return {};
}

/// A new file, made private by `prepare` before the first byte is in it; gone again where anything
/// fails.
template<class Prepare>
Result<void> createPrepared(const Path& path, std::string_view bytes, mode_t mode,
                            Prepare prepare) {
    Descriptor file(uninterrupted([&] {
        return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
    }));
    if (file.number() < 0)
        return lastError();
    Result<void> written = prepare(file.number());
    if (written)
        written = writeAll(file.number(), bytes);
    if (written)
        written = flush(file.number());
    if (const auto closed = file.close(); written && !closed)
        written = closed;
    if (!written)
        ::unlink(path.c_str());
    return written;
}

/// Where a file system does not know the flag, the system the call, or a sandbox lets neither pass;
/// where it is the file that must not be moved, what is tried instead says so again.
bool isUnknown(int error) {
    return error == EINVAL || error == ENOSYS || error == ENOTSUP || error == EPERM;
}

Result<void> renameFlagged(const Path& from, const Path& to, unsigned flags) {
    return outcome(::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), flags));
}

/// What `number` says of what is no file.
bool isNoFile(int error) {
    return error == EISDIR || error == ENOTSUP;
}

/// Where files cannot be exchanged. A second name keeps what stands there through the rename; what
/// another program puts there between the two calls is not kept.
Result<Former> replaceByLink(const Path& from, const Path& path, const Path& spare) {
    const bool isKept = ::link(path.c_str(), spare.c_str()) == 0;
    if (!isKept && errno == ENOENT) {
        const auto put = renameToNew(from, path);
        if (put)
            return Former{};
        if (put.error() != EEXIST)
            return std::unexpected(put.error());
    }
    const auto file = isKept ? number(spare) : Result<ino_t>(0);
    const auto replaced = file || !isNoFile(file.error())
                              ? outcome(::rename(from.c_str(), path.c_str()))
                              : std::unexpected(file.error());
    if (!replaced) {
        if (isKept)
            ::unlink(spare.c_str());
        return std::unexpected(replaced.error());
    }
    if (isKept)
        return Former{.fate = Former::Fate::setAside, .aside = spare};
    return Former{.fate = Former::Fate::lost, .aside = {}};
}

} // namespace

Result<void> create(const Path& path, std::string_view bytes, mode_t mode, ModeRule rule) {
    return createPrepared(path, bytes, mode, [&](int file) -> Result<void> {
        if (rule == ModeRule::masked)
            return {};
        return outcome(uninterrupted([&] { return ::fchmod(file, mode); }));
    });
}

Result<std::vector<std::string>> createLike(const Path& path, std::string_view bytes,
                                            const Attributes& like) {
    std::vector<std::string> lost;
    // Nobody else's until it is known to whom it may belong.
    const auto created = createPrepared(path, bytes, 0600, [&](int file) -> Result<void> {
        lost = give(file, like);
        return {};
    });
    if (!created)
        return std::unexpected(created.error());
    return lost;
}

Result<void> rename(const Path& from, const Path& to) {
    return outcome(::rename(from.c_str(), to.c_str()));
}

Result<void> renameToNew(const Path& from, const Path& to) {
    const auto renamed = renameFlagged(from, to, RENAME_NOREPLACE);
    if (renamed || !isUnknown(renamed.error()))
        return renamed;
    if (::link(from.c_str(), to.c_str()) == 0) {
        const auto removed = outcome(::unlink(from.c_str()));
        if (!removed)
            ::unlink(to.c_str());
        return removed;
    }
    if (errno == EEXIST || errno == ENOENT || errno == ENOTDIR)
        return lastError();
    // A file system without hard links: there is nothing to do but look.
    if (Disk::exists(to))
        return std::unexpected(EEXIST);
    return outcome(::rename(from.c_str(), to.c_str()));
}

Result<Former> replace(const Path& from, const Path& path, const Path& spare) {
    // Somebody may make the file or take it away between two calls; nobody does so for long.
    for (int tries = 0; tries < 16; ++tries) {
        const auto exchanged = renameFlagged(from, path, RENAME_EXCHANGE);
        if (exchanged) {
            // A folder or a link that came to stand there meanwhile goes back to its place.
            if (const auto file = number(from); !file && isNoFile(file.error()))
                if (renameFlagged(from, path, RENAME_EXCHANGE))
                    return std::unexpected(file.error());
            return Former{.fate = Former::Fate::setAside, .aside = from};
        }
        if (isUnknown(exchanged.error()))
            return replaceByLink(from, path, spare);
        if (exchanged.error() != ENOENT)
            return std::unexpected(exchanged.error());
        const auto put = renameToNew(from, path);
        if (put)
            return Former{};
        if (put.error() != EEXIST)
            return std::unexpected(put.error());
    }
    return std::unexpected(EBUSY);
}

Result<void> takeAway(const Path& path, const Path& aside) {
    const auto taken = renameToNew(path, aside);
    if (!taken)
        return taken;
    if (const auto file = number(aside); !file && isNoFile(file.error()))
        if (renameToNew(aside, path))
            return std::unexpected(file.error());
    return {};
}

Result<void> remove(const Path& path) {
    return outcome(::unlink(path.c_str()));
}

Result<void> removeFolder(const Path& path) {
    return outcome(::rmdir(path.c_str()));
}

Result<void> flushFolder(const Path& folder) {
    Descriptor open(openToRead(folder, O_DIRECTORY));
    if (open.number() < 0) {
        // A folder may be open to new files and closed to readers; nothing can flush that one.
        if (errno == EACCES)
            return {};
        return lastError();
    }
    return flush(open.number());
}

} // namespace wendlow::Disk
