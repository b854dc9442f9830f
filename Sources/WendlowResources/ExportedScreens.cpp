#include "ExportedScreens.h"

#include "ClientInstance.h"
#include "Say.h"
#include "UniquePart.h"
#include "WireUTF8.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <cwctype>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <fmt/format.h>
#include <locale.h>
#include <sys/stat.h>
#include <unistd.h>

namespace wendlow {

namespace {

namespace fs = std::filesystem;
using Failure = ExportedScreens::Failure;

/// Where a file name may be 255 bytes, and the moment's number has its share.
constexpr std::size_t longestWindow = 180;

/// A descriptor that closes itself.
class Descriptor {
public:
    explicit Descriptor(int descriptor) : m_descriptor(descriptor) {}
    ~Descriptor() {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }
    int get() const { return m_descriptor; }
    /// What has been written may come to light as not written only now.
    bool close() { return ::close(std::exchange(m_descriptor, -1)) == 0; }

private:
    int m_descriptor;
};

Failure unwritable(const fs::path& path, int error) {
    return {Failure::Kind::unwritable, path, error};
}

int openFolder(const fs::path& folder) {
    return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

/// Letters and digits of any script, whatever locale the process has.
bool isLetterOrDigit(char32_t code) {
    static const locale_t unicode = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (unicode == nullptr)
        return code < 0x80 && std::isalnum(static_cast<unsigned char>(code)) != 0;
    return ::iswalnum_l(static_cast<wint_t>(code), unicode) != 0;
}

std::string reduced(std::string_view window) {
    std::string name;
    for (std::size_t at = 0; at < window.size();) {
        const WireUTF8::Character next = WireUTF8::characterAt(window, at);
        if (next.isWellFormed && isLetterOrDigit(next.code)) {
            if (name.size() + next.length > longestWindow)
                break;
            name += window.substr(at, next.length);
        }
        at += next.length;
    }
    return name;
}

/// Gives 0, or the number of what went wrong.
int writeAll(Descriptor& file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file.get(), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return errno;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return file.close() ? 0 : errno;
}

/// The folder for what belongs to this user until the session ends. Where the session has given
/// none, one below the temporary folder that everybody shares, which is looked at like any other.
std::string temporaryFolder() {
    const char* const runtime = std::getenv("XDG_RUNTIME_DIR");
    if (runtime != nullptr && *runtime != '\0')
        return runtime;
    const fs::path own = fmt::format("/tmp/{}-{}", ClientInstance::logStem, ::geteuid());
    ::mkdir(own.c_str(), 0700);
    struct stat status{};
    const bool isOurs = ::lstat(own.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
                        status.st_uid == ::geteuid() && (status.st_mode & 0077U) == 0;
    return isOurs ? own.string() : std::string();
}

} // namespace

std::string Failure::description() const {
    if (kind == Kind::notAFolder)
        return say("{} is not a plain folder; nothing is written through it", path.string());
    return say("could not write {}: {}", path.string(), std::strerror(error));
}

std::string ExportedScreens::folderName() {
    return fmt::format("{}-screens", ClientInstance::logStem);
}

std::optional<ExportedScreens> ExportedScreens::live() {
    const std::string folder = temporaryFolder();
    if (!folder.starts_with('/') || folder == "/")
        return std::nullopt;
    return ExportedScreens(fs::path(folder) / folderName());
}

std::expected<void, Failure> ExportedScreens::prepare() const {
    struct stat status{};
    if (::lstat(m_folder.c_str(), &status) != 0) {
        // Another process may make it at the same moment.
        if (errno != ENOENT || (::mkdir(m_folder.c_str(), 0700) != 0 && errno != EEXIST) ||
            ::lstat(m_folder.c_str(), &status) != 0)
            return std::unexpected(unwritable(m_folder, errno));
    }
    if (!S_ISDIR(status.st_mode))
        return std::unexpected(Failure{Failure::Kind::notAFolder, m_folder});
    // Whoever owns it can read what comes into it.
    if (status.st_uid != ::geteuid())
        return std::unexpected(unwritable(m_folder, EPERM));
    if (::chmod(m_folder.c_str(), 0700) != 0)
        return std::unexpected(unwritable(m_folder, errno));
    return {};
}

std::expected<fs::path, Failure> ExportedScreens::write(std::string_view png, std::int64_t moment,
                                                        std::string_view window) const {
    if (const auto prepared = prepare(); !prepared)
        return std::unexpected(prepared.error());
    std::string name = fmt::format("moment-{}", moment);
    if (const std::string words = reduced(window); !words.empty())
        name += '-' + words;
    name += ".png";
    fs::path path = m_folder / name;
    // All that follows goes by the folder that is held here, though its path came to be another's.
    const Descriptor folder(openFolder(m_folder));
    if (!folder.isOpen())
        return std::unexpected(unwritable(m_folder, errno));
    const std::string temporary = fmt::format(".{}", uniquePart());
    Descriptor file(::openat(folder.get(), temporary.c_str(),
                             O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!file.isOpen())
        return std::unexpected(unwritable(path, errno));
    int error = writeAll(file, png);
    if (error == 0 && ::renameat(folder.get(), temporary.c_str(), folder.get(), name.c_str()) != 0)
        error = errno;
    if (error != 0) {
        ::unlinkat(folder.get(), temporary.c_str(), 0);
        return std::unexpected(unwritable(path, error));
    }
    return path;
}

int ExportedScreens::clear() const {
    const fs::path parent = m_folder.parent_path();
    if (m_folder.filename() != folderName() || !parent.is_absolute() || parent == "/")
        return 0;
    const int descriptor = openFolder(m_folder);
    DIR* const folder = descriptor < 0 ? nullptr : ::fdopendir(descriptor);
    if (folder == nullptr) {
        if (descriptor >= 0)
            ::close(descriptor);
        return 0;
    }
    // Before anything goes: a folder that changes while it is read may be read amiss.
    std::vector<std::string> names;
    while (const dirent* const entry = ::readdir(folder))
        names.emplace_back(entry->d_name);
    int removed = 0;
    for (const std::string& name : names) {
        struct stat status{};
        if (::fstatat(descriptor, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
            !S_ISDIR(status.st_mode) && ::unlinkat(descriptor, name.c_str(), 0) == 0)
            ++removed;
    }
    ::closedir(folder);
    ::rmdir(m_folder.c_str()); // goes only where it is empty
    return removed;
}

} // namespace wendlow
