#include "ConfigFile/Disk.h"

#include "ConfigFile/DiskCalls.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <tuple>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

namespace wendlow::Disk {
namespace {

constexpr std::size_t pieceSize = std::size_t{256} * 1024;
constexpr std::size_t smallPieceSize = std::size_t{4} * 1024;

/// The size of an open file; anything but a regular file is an error.
Result<std::size_t> fileSize(int descriptor) {
    struct stat status{};
    if (::fstat(descriptor, &status) != 0)
        return lastError();
    if (S_ISDIR(status.st_mode))
        return std::unexpected(EISDIR);
    if (!S_ISREG(status.st_mode))
        return std::unexpected(ENOTSUP);
    return static_cast<std::size_t>(status.st_size);
}

/// Reads until `room` is full or the file ends; the number of bytes read. Where the file is known
/// to have ended at `end` a moment ago, a read of more that stops right there has met its end, and
/// no other is made to be told so.
Result<std::size_t> fill(int descriptor, char* room, std::size_t size,
                         std::size_t end = std::string::npos) {
    std::size_t filled = 0;
    while (filled < size) {
        const auto count =
            uninterrupted([&] { return ::read(descriptor, room + filled, size - filled); });
        if (count < 0)
            return lastError();
        if (count == 0)
            break;
        filled += static_cast<std::size_t>(count);
        if (filled == end)
            break;
    }
    return filled;
}

/// Reads on behind what `bytes` hold, until they are `room` long or the file ends, which it did a
/// moment ago at `end`.
Result<void> extend(int descriptor, std::string& bytes, std::size_t room,
                    std::size_t end = std::string::npos) {
    const std::size_t held = bytes.size();
    Result<std::size_t> count = 0;
    bytes.resize_and_overwrite(room, [&](char* data, std::size_t) {
        count = fill(descriptor, data + held, room - held, end - held);
        return held + count.value_or(0);
    });
    if (!count)
        return std::unexpected(count.error());
    return {};
}

/// Visits what is in a folder, in no order.
template<class Visit> Result<void> list(const Path& folder, Visit visit) {
    const auto closeFolder = [](DIR* open) { ::closedir(open); };
    const std::unique_ptr<DIR, decltype(closeFolder)> open(::opendir(folder.c_str()));
    if (open == nullptr)
        return lastError();
    for (;;) {
        errno = 0;
        const dirent* entry = ::readdir(open.get()); // NOLINT(concurrency-mt-unsafe): own stream
        if (entry == nullptr)
            break;
        if (const std::string_view name = entry->d_name; name != "." && name != "..")
            visit(*entry);
    }
    if (errno != 0)
        return lastError();
    return {};
}

} // namespace

std::string words(int error) {
    std::array<char, 256> room{};
    return ::strerror_r(error, room.data(), room.size());
}

/// Everything that an open file holds.
static Result<std::string> readAll(int file) {
    const auto size = fileSize(file);
    if (!size)
        return std::unexpected(size.error());

    // The size is a hint: the file may grow or shrink under our hands. One byte more than it shows
    // the end without another round.
    std::string bytes;
    for (std::size_t room = *size + 1;; room = bytes.size() + pieceSize) {
        if (const auto extended = extend(file, bytes, room, *size); !extended)
            return std::unexpected(extended.error());
        if (bytes.size() < room)
            return bytes;
    }
}

/// What the kernel calls an open file: one question, where `realpath` asks for every folder on the
/// way.
static Result<Path> kernelPath(int file) {
    auto name = readLink("/proc/self/fd/" + std::to_string(file));
    // A file that was just removed is called by a name that nobody can use.
    if (name && (!name->is_absolute() || name->native().ends_with(" (deleted)")))
        return std::unexpected(ESTALE);
    return name;
}

Result<std::optional<std::string>> read(const Path& path) {
    const Descriptor file(openToRead(path, 0));
    if (file.number() < 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return std::nullopt;
        return lastError();
    }
    return readAll(file.number());
}

Result<Found> readWhereItLies(const Path& path) {
    const Descriptor file(openToRead(path, 0));
    if (file.number() < 0)
        return lastError();
    auto place = kernelPath(file.number());
    if (!place)
        return std::unexpected(place.error());
    auto bytes = readAll(file.number());
    if (!bytes)
        return std::unexpected(bytes.error());
    return Found{.path = *std::move(place), .bytes = *std::move(bytes)};
}

Result<std::optional<std::string>> firstLine(const Path& path, std::size_t limit) {
    const Descriptor file(openToRead(path, 0));
    if (file.number() < 0)
        return lastError();
    if (const auto size = fileSize(file.number()); !size)
        return std::unexpected(size.error());
    std::string bytes;
    for (std::size_t room = std::min(limit, smallPieceSize);; room = std::min(limit, room * 2)) {
        const std::size_t held = bytes.size();
        if (const auto extended = extend(file.number(), bytes, room); !extended)
            return std::unexpected(extended.error());
        if (const auto end = bytes.find('\n', held); end != std::string::npos) {
            bytes.resize(end);
            return bytes;
        }
        if (bytes.size() < room || room == limit)
            return std::nullopt;
    }
}

Result<bool> holds(const Path& path, std::string_view bytes) {
    Descriptor file(openToRead(path, 0));
    if (file.number() < 0)
        return lastError();
    if (const auto size = fileSize(file.number()); !size)
        return std::unexpected(size.error());
    const auto piece = std::make_unique_for_overwrite<char[]>(pieceSize);
    for (;;) {
        const auto count = fill(file.number(), piece.get(), pieceSize);
        if (!count)
            return std::unexpected(count.error());
        if (!bytes.starts_with(std::string_view(piece.get(), *count)))
            return false;
        bytes.remove_prefix(*count);
        if (*count < pieceSize)
            return bytes.empty();
    }
}

Kind kind(const Path& path) {
    struct stat status{};
    if (::stat(path.c_str(), &status) != 0)
        return Kind::nothing;
    if (S_ISREG(status.st_mode))
        return Kind::file;
    return S_ISDIR(status.st_mode) ? Kind::folder : Kind::other;
}

bool exists(const Path& path) {
    return kind(path) != Kind::nothing;
}

bool isDirectory(const Path& path) {
    return kind(path) == Kind::folder;
}

bool isWritable(const Path& path) {
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

bool isRunnable(const Path& path) {
    return kind(path) == Kind::file && ::access(path.c_str(), X_OK) == 0;
}

Result<mode_t> mode(const Path& path) {
    struct stat status{};
    if (::stat(path.c_str(), &status) != 0)
        return lastError();
    return status.st_mode & mode_t{07777};
}

Result<void> setMode(const Path& path, mode_t mode) {
    return outcome(::chmod(path.c_str(), mode));
}

Result<ino_t> number(const Path& path) {
    struct stat status{};
    if (::lstat(path.c_str(), &status) != 0)
        return lastError();
    if (S_ISREG(status.st_mode))
        return status.st_ino;
    return std::unexpected(S_ISDIR(status.st_mode) ? EISDIR : ENOTSUP);
}

Result<void> createDirectories(const Path& path, mode_t mode) {
    if (isDirectory(path))
        return {};
    int status = ::mkdir(path.c_str(), mode);
    if (status != 0 && errno == ENOENT && path.has_relative_path() && path.parent_path() != path) {
        if (const auto above = createDirectories(path.parent_path(), mode); !above)
            return above;
        status = ::mkdir(path.c_str(), mode);
    }
    if (status == 0)
        return setMode(path, mode);
    // Somebody else may have made it since we looked.
    const int error = errno;
    if (error == EEXIST && isDirectory(path))
        return {};
    return std::unexpected(error);
}

Result<Made> makeFolder(const Path& path, mode_t mode) {
    if (::mkdir(path.c_str(), mode) == 0) {
        if (const auto set = setMode(path, mode); !set) {
            ::rmdir(path.c_str());
            return std::unexpected(set.error());
        }
        return Made::now;
    }
    const int error = errno;
    if (error == EEXIST && isDirectory(path))
        return Made::before;
    return std::unexpected(error);
}

Result<std::vector<std::string>> names(const Path& folder) {
    std::vector<std::string> found;
    const auto listed =
        list(folder, [&](const dirent& entry) { found.emplace_back(entry.d_name); });
    if (!listed)
        return std::unexpected(listed.error());
    std::ranges::sort(found);
    return found;
}

std::vector<Path> filesBelow(const Path& folder, std::string_view suffix) {
    std::vector<Path> found;
    std::vector<Path> folders{folder};
    while (!folders.empty()) {
        const Path current = std::move(folders.back());
        folders.pop_back();
        std::ignore = list(current, [&](const dirent& entry) {
            const std::string_view name = entry.d_name;
            const bool matches = name.size() > suffix.size() && name.ends_with(suffix);
            // What the folder's listing tells need not be asked again; links, and what some file
            // systems do not tell, have to be.
            switch (entry.d_type) {
            case DT_DIR:
                folders.push_back(current / name);
                break;
            case DT_REG:
                if (matches)
                    found.push_back(current / name);
                break;
            case DT_LNK:
                if (matches && kind(current / name) == Kind::file)
                    found.push_back(current / name);
                break;
            case DT_UNKNOWN:
                if (const Kind what = kind(current / name); what == Kind::folder)
                    folders.push_back(current / name);
                else if (matches && what == Kind::file)
                    found.push_back(current / name);
                break;
            default:
                break;
            }
        });
    }
    return found;
}

Result<Path> realPath(const Path& path) {
    const Descriptor file(::open(path.c_str(), O_PATH | O_CLOEXEC));
    if (file.number() < 0 && errno == ENOENT)
        return lastError();
    if (file.number() >= 0)
        if (auto name = kernelPath(file.number()))
            return name;
    const auto release = [](char* text) { std::free(text); };
    const std::unique_ptr<char, decltype(release)> resolved(::realpath(path.c_str(), nullptr));
    if (resolved == nullptr)
        return lastError();
    return Path(resolved.get());
}

Result<Path> readLink(const Path& path) {
    std::array<char, 4096> room{};
    const auto count = ::readlink(path.c_str(), room.data(), room.size());
    if (count < 0)
        return lastError();
    if (static_cast<std::size_t>(count) == room.size())
        return std::unexpected(ENAMETOOLONG);
    return Path(std::string_view(room.data(), static_cast<std::size_t>(count)));
}

bool isRunningElsewhere(pid_t process) {
    return process != ::getpid() && (::kill(process, 0) == 0 || errno != ESRCH);
}

Result<std::array<std::uint8_t, 16>> random() {
    std::array<std::uint8_t, 16> bits{};
    // Up to 256 bytes come whole or not at all.
    if (uninterrupted([&] { return ::getrandom(bits.data(), bits.size(), 0); }) < 0)
        return lastError();
    return bits;
}

} // namespace wendlow::Disk
