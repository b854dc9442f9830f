#include "ConfigFile/AtomicWrite.h"

#include "ConfigFile/Disk.h"

#include <cerrno>
#include <tuple>

#include <fmt/format.h>

namespace wendlow::AtomicWrite {
namespace {

/// A random UUID in upper-case text.
Disk::Result<std::string> uuid() {
    auto bits = Disk::random();
    if (!bits)
        return std::unexpected(bits.error());
    (*bits)[6] = static_cast<std::uint8_t>(((*bits)[6] & 0x0fU) | 0x40U); // version 4: random
    (*bits)[8] = static_cast<std::uint8_t>(((*bits)[8] & 0x3fU) | 0x80U); // the usual variant
    std::string text;
    for (std::size_t index = 0; index < bits->size(); ++index) {
        if (index == 4 || index == 6 || index == 8 || index == 10)
            text += '-';
        text += fmt::format("{:02X}", (*bits)[index]);
    }
    return text;
}

/// The destination's own folder, so that the rename stays on one volume.
Disk::Result<Disk::Path> temporaryPath(const Disk::Path& path) {
    const auto unique = uuid();
    if (!unique)
        return std::unexpected(unique.error());
    return path.parent_path() /
           fmt::format(".{}.wendlow-{}.tmp", path.filename().string(), *unique);
}

/// The temporary file never has more than the destination's mode: the bytes may be private. Where
/// that mode cannot be learnt, they are taken for private.
Disk::Result<void> createTemporary(const Disk::Path& temporary, std::string_view bytes,
                                   const Disk::Path& path) {
    const auto mode = Disk::mode(path);
    if (!mode) {
        const mode_t fallback = mode.error() == ENOENT ? 0666 : 0600;
        return Disk::create(temporary, bytes, fallback, Disk::ModeRule::masked);
    }
    auto created = Disk::create(temporary, bytes, *mode, Disk::ModeRule::masked);
    // What the umask took away comes back. A file system without modes is no reason not to write.
    if (created)
        std::ignore = Disk::setMode(temporary, *mode);
    return created;
}

} // namespace

std::expected<void, ConfigFileError> write(std::string_view bytes,
                                           const std::filesystem::path& path,
                                           const std::function<void()>& beforeRename) {
    const auto failed = [&](int error) {
        return std::unexpected(ConfigFileError::writeFailed(path.string(), Disk::words(error)));
    };
    const auto temporary = temporaryPath(path);
    if (!temporary)
        return failed(temporary.error());
    if (const auto created = createTemporary(*temporary, bytes, path); !created)
        return failed(created.error());
    if (beforeRename)
        beforeRename();
    if (const auto renamed = Disk::rename(*temporary, path); !renamed) {
        std::ignore = Disk::remove(*temporary);
        return failed(renamed.error());
    }
    return {};
}

} // namespace wendlow::AtomicWrite
