#include "ConfigFile/AtomicWrite.h"

#include "ConfigFile/Disk.h"
#include "ConfigFile/HiddenName.h"

#include <cerrno>
#include <tuple>

namespace wendlow::AtomicWrite {
namespace {

/// The hidden file never has more than the destination's mode: the bytes may be private. Where that
/// mode cannot be learnt, they are taken for private.
Disk::Result<Staged::Lack> create(const Path& hidden, std::string_view bytes, const Path& path,
                                  mode_t born) {
    const auto former = Disk::attributes(path);
    if (former) {
        auto lost = Disk::createLike(hidden, bytes, *former);
        if (!lost)
            return std::unexpected(lost.error());
        return Staged::Lack{.attributes = *std::move(lost), .links = former->names > 1};
    }
    const auto created = Disk::create(hidden, bytes, former.error() == ENOENT ? born : mode_t{0600},
                                      Disk::ModeRule::masked);
    if (!created)
        return std::unexpected(created.error());
    return Staged::Lack{};
}

/// Under a name that tells what it is, should this process be killed before it is taken.
Disk::Result<Path> numbered(const Path& hidden) {
    const auto number = Disk::number(hidden);
    if (!number)
        return std::unexpected(number.error());
    auto named = HiddenName::numbered(hidden, *number);
    if (const auto renamed = Disk::rename(hidden, named); !renamed)
        return std::unexpected(renamed.error());
    return named;
}

} // namespace

void Staged::discard() {
    if (!m_hidden.empty())
        std::ignore = Disk::remove(m_hidden);
}

std::expected<Staged, ConfigFileError> stage(std::string_view bytes, const Path& path,
                                             mode_t born) {
    const auto failed = [&](int error) {
        return std::unexpected(ConfigFileError::writeFailed(path.string(), Disk::words(error)));
    };
    const auto hidden = HiddenName::unique(path);
    if (!hidden)
        return failed(hidden.error());
    auto lack = create(*hidden, bytes, path, born);
    if (!lack)
        return failed(lack.error());
    auto named = numbered(*hidden);
    if (!named) {
        std::ignore = Disk::remove(*hidden);
        return failed(named.error());
    }
    return Staged(*std::move(named), *std::move(lack));
}

std::expected<void, ConfigFileError> write(std::string_view bytes, const Path& path,
                                           const Manner& manner) {
    auto staged = stage(bytes, path, manner.born);
    if (!staged)
        return std::unexpected(staged.error());
    if (manner.beforeRename)
        manner.beforeRename();
    if (const auto renamed = Disk::rename(staged->hidden(), path); !renamed)
        return std::unexpected(
            ConfigFileError::writeFailed(path.string(), Disk::words(renamed.error())));
    staged->take();
    return {};
}

} // namespace wendlow::AtomicWrite
