#include "ToolsBefore.h"

#include "ConfigFile/Backup.h"
#include "Connector.h"
#include "SafeFolder.h"
#include "ToolNote.h"

#include <QCryptographicHash>

#include <algorithm>
#include <array>
#include <cerrno>
#include <expected>
#include <map>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

namespace wendlow {

namespace {

using Path = std::filesystem::path;
using Folders = ToolNote::Folders;
using Log = std::function<void(const std::string& line)>;

/// Whatever is larger is no configuration, and is left alone.
constexpr off_t largest = off_t{256} << 20U;
/// Connectors keep two beside a file.
constexpr std::size_t mostCopies = 64;

/// In hexadecimal digits.
std::string text(const QCryptographicHash& hash) {
    return hash.result().toHex().toStdString();
}

std::optional<std::string> hashOf(int file) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    std::array<char, 65536> piece{};
    off_t place = 0;
    while (place <= largest) {
        const ssize_t size = ::pread(file, piece.data(), piece.size(), place);
        if (size < 0 && errno != EINTR)
            return std::nullopt;
        if (size == 0)
            return text(hash);
        if (size > 0)
            hash.addData(QByteArrayView(piece.data(), size));
        place += std::max<ssize_t>(size, 0);
    }
    return std::nullopt;
}

std::string hashOfNames(int folder) {
    std::vector<std::string> names = SafeFolder::names(folder);
    std::ranges::sort(names);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const std::string& name : names) // each with the zero at its end, which no name holds
        hash.addData(QByteArrayView(name.c_str(), static_cast<qsizetype>(name.size()) + 1));
    return text(hash);
}

bool isSame(const timespec& one, const timespec& other) {
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}

/// One file that nobody has written to since.
bool isSame(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino &&
           one.st_size == other.st_size && isSame(one.st_mtim, other.st_mtim) &&
           isSame(one.st_ctim, other.st_ctim);
}

FileTime timeOf(const struct stat& status) {
    return {status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

void setTime(int file, const timespec& time) {
    const timespec times[] = {{.tv_sec = 0, .tv_nsec = UTIME_OMIT}, time};
    ::futimens(file, times); // one that does not let itself be set stays as it is
}

void setTime(int file, const FileTime& time) {
    setTime(file, {.tv_sec = time.seconds, .tv_nsec = static_cast<long>(time.nanoseconds)});
}

/// A plain file as it is just now, open.
struct Sight {
    Descriptor file;
    struct stat status{};
    std::string bytes; ///< a hash of them
};

enum class NoSight {
    absent,
    unfit, ///< a link, a folder, too large, being written, not to be read
};

std::expected<Sight, NoSight> look(int folder, const std::string& name) {
    const int file = ::openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return std::unexpected(errno == ENOENT ? NoSight::absent : NoSight::unfit);
    Sight sight;
    sight.file = Descriptor(file);
    if (::fstat(file, &sight.status) != 0 || !S_ISREG(sight.status.st_mode))
        return std::unexpected(NoSight::unfit);
    auto bytes = hashOf(file);
    struct stat after{};
    if (!bytes || ::fstat(file, &after) != 0 || !isSame(sight.status, after))
        return std::unexpected(NoSight::unfit);
    sight.bytes = *std::move(bytes);
    return sight;
}

/// What a sight says of the bytes, as a note has it.
std::optional<std::string> bytesOf(const std::expected<Sight, NoSight>& sight) {
    return sight ? std::optional(sight->bytes) : std::nullopt;
}

bool isFit(const std::expected<Sight, NoSight>& sight) {
    return sight || sight.error() == NoSight::absent;
}

std::vector<std::string> copiesOf(const Path& file) {
    std::vector<std::string> names;
    for (const Path& copy : Backup::all(file))
        names.push_back(copy.filename().string());
    return names;
}

/// The names of what a verb may change, by their folders. What a folder holds comes before the
/// folder, since what becomes of the one is seen in the other's time.
using Named = std::map<std::string, std::vector<std::string>, std::greater<>>;

Named namedBy(const Connector& connector) {
    Named named;
    for (const Path& file : connector.files())
        named[file.parent_path().string()].push_back(file.filename().string());
    return named;
}

/// Nothing where there is nothing to go by: a link stands on the way, or it cannot be entered.
std::optional<FolderBefore> seen(const std::string& path, const std::vector<std::string>& names,
                                 const Path& home) {
    FolderBefore folder{.path = path, .names = std::nullopt, .time = {}, .files = {}};
    const auto open = SafeFolder::open(path, home);
    if (open) {
        struct stat status{};
        if (::fstat(open->number(), &status) != 0)
            return std::nullopt;
        folder.time = timeOf(status);
        folder.names = hashOfNames(open->number());
    } else if (struct stat status{}; ::lstat(path.c_str(), &status) == 0) {
        return std::nullopt;
    }
    for (const std::string& name : names) {
        const auto sight = open ? look(open->number(), name) : std::unexpected(NoSight::absent);
        auto copies = copiesOf(Path(path) / name);
        if (isFit(sight) && copies.size() <= mostCopies)
            folder.files.push_back({.name = name,
                                    .bytes = bytesOf(sight),
                                    .time = sight ? timeOf(sight->status) : FileTime(),
                                    .copies = std::move(copies)});
    }
    return folder;
}

/// Whether the tool's files in the folder hold what they held, whatever their times and copies: so
/// that a journey that is broken off goes on with what was there before its first step.
bool isStill(const FolderBefore& before, const FolderBefore& now) {
    return before.names.has_value() == now.names.has_value() &&
           std::ranges::equal(before.files, now.files,
                              [](const FileBefore& one, const FileBefore& other) {
                                  return one.name == other.name && one.bytes == other.bytes;
                              });
}

/// One tool's note, and what is done by it.
class Noted {
public:
    Noted(const Connector& connector, const ToolsBefore::Places& places, const Log& log)
        : m_connector(connector), m_home(places.home), m_tool(connector.identity().id),
          m_at(ToolNote::path(places.support, m_tool)), m_named(namedBy(connector)), m_log(log) {}

    void beforeConnect() const {
        const auto known = read();
        // A verb that was killed halfway has left something of ours there: what that is was not
        // there before.
        if (known && m_connector.scan().state != ConnectorState::found)
            return;
        Folders folders;
        for (const auto& [path, names] : m_named) {
            auto now = seen(path, names, m_home);
            if (!now)
                continue;
            const auto before = known ? std::ranges::find(*known, path, &FolderBefore::path)
                                      : Folders::const_iterator();
            const bool holds = known && before != known->end() && isStill(*before, *now);
            folders.push_back(holds ? *before : *std::move(now));
        }
        ToolNote::write(folders, m_at);
    }

    void afterConnect() const {
        auto folders = read();
        if (!folders)
            return;
        for (FolderBefore& folder : *folders) {
            const auto open = SafeFolder::open(folder.path, m_home);
            for (FileBefore& file : folder.files)
                if (const auto sight =
                        open ? look(open->number(), file.name) : std::unexpected(NoSight::absent);
                    sight && sight->bytes != file.bytes)
                    file.wired = sight->bytes;
        }
        ToolNote::write(*folders, m_at);
    }

    void putBack() const {
        if (const auto folders = read())
            for (const FolderBefore& folder : *folders)
                putFolderBack(folder);
        ::unlink(m_at.c_str()); // last: killed before that, the next cancel does all of it again
    }

private:
    /// What the note says of what the connector names; the rest is somebody's else.
    std::optional<Folders> read() const {
        auto folders = ToolNote::read(m_at);
        if (!folders)
            return std::nullopt;
        const auto isForeign = [&](const FolderBefore& folder) {
            const auto names = m_named.find(folder.path);
            const bool isNamed =
                names != m_named.end() &&
                std::ranges::all_of(folder.files, [&](const FileBefore& file) {
                    return std::ranges::find(names->second, file.name) != names->second.end();
                });
            if (!isNamed)
                logStays(folder.path, "it is none of the tool's");
            return !isNamed;
        };
        std::erase_if(*folders, isForeign);
        std::ranges::sort(*folders, std::greater(), &FolderBefore::path);
        return folders;
    }

    void logStays(const std::string& path, std::string_view reason) const {
        m_log(fmt::format("cancel-install: {}: {} left as it is ({})", m_tool, path, reason));
    }

    void putFolderBack(const FolderBefore& before) const {
        const auto folder = SafeFolder::open(before.path, m_home);
        if (!folder)
            return;
        for (const FileBefore& file : before.files)
            if (const std::string_view reason = putFileBack(folder->number(), before.path, file);
                !reason.empty())
                logStays((Path(before.path) / file.name).string(), reason);
        if (!before.names) {
            // Ours, since it was made when the tool was plugged in; but only once it is empty.
            const Path path(before.path);
            if (const auto above = SafeFolder::open(path.parent_path(), m_home))
                ::unlinkat(above->number(), path.filename().c_str(), AT_REMOVEDIR);
        } else if (hashOfNames(folder->number()) == *before.names) {
            setTime(folder->number(), before.time);
        }
    }

    /// Why the file, and what lies beside it, stays as it is; empty: it does not.
    static std::string_view putFileBack(int folder, const Path& path, const FileBefore& before) {
        const auto sight = look(folder, before.name);
        if (!isFit(sight) || bytesOf(sight) != before.bytes)
            return "it is not what it was";
        std::vector<std::pair<std::string, Sight>> ours;
        for (const std::string& name : copiesOf(path / before.name)) {
            if (std::ranges::find(before.copies, name) != before.copies.end())
                continue;
            auto copy = look(folder, name);
            // One that holds anything else holds what somebody wrote, and it is nowhere else.
            if (!copy || (copy->bytes != before.bytes && copy->bytes != before.wired))
                return "a copy of it holds something else";
            ours.emplace_back(name, *std::move(copy));
        }
        for (const auto& [name, copy] : ours)
            if (struct stat now{};
                ::fstatat(folder, name.c_str(), &now, AT_SYMLINK_NOFOLLOW) == 0 &&
                isSame(copy.status, now))
                ::unlinkat(folder, name.c_str(), 0);
        if (!sight || timeOf(sight->status) == before.time)
            return {};
        setTime(sight->file.number(), before.time);
        // What was written in this very moment must not look old.
        if (hashOf(sight->file.number()) != before.bytes)
            setTime(sight->file.number(), timespec{.tv_sec = 0, .tv_nsec = UTIME_NOW});
        return {};
    }

    const Connector& m_connector;
    const Path m_home;
    const std::string m_tool;
    const Path m_at;
    const Named m_named;
    const Log& m_log;
};

} // namespace

ToolsBefore ToolsBefore::onDisk(const Places& places, const Log& log) {
    const auto step = [&](void (Noted::*does)() const) {
        return [=](const Connector& connector) { (Noted(connector, places, log).*does)(); };
    };
    return {.beforeConnect = step(&Noted::beforeConnect),
            .afterConnect = step(&Noted::afterConnect),
            .putBack = step(&Noted::putBack)};
}

} // namespace wendlow
