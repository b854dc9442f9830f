#pragma once

#include "ConfigFile/AtomicWrite.h"
#include "ConfigFile/Disk.h"

#include <optional>
#include <string>

namespace wendlow {

/// One file that is replaced, made or taken away, in steps: what stood in its place is set aside
/// and not lost until somebody has looked at it, and can be brought back.
class Replacement {
public:
    using Path = std::filesystem::path;
    using Outcome = std::expected<void, ConfigFileError>;

    /// `after`: the bytes it is to have, which must outlive this; nothing: it is to be taken away.
    /// A file that is not there yet gets at most the mode `born`.
    Replacement(Path path, const std::optional<std::string>& after, mode_t born)
        : m_path(std::move(path)), m_after(&after), m_born(born) {}
    Replacement(Replacement&&) = default;

    /// Does everything that can fail for want of room or rights. Nothing is replaced yet.
    Outcome prepare();
    /// What the new file will lack of what the old one has beside its bytes, as in "its owner".
    const std::vector<std::string>& lacks() const { return m_lack.attributes; }
    /// Whether the old file has other names, under which it stays.
    bool leavesLinks() const { return m_lack.links; }
    /// At once: whoever reads finds the old file or the new one. Needs no room.
    Outcome carryOut();
    bool isDone() const { return m_isDone; }
    /// Whether what stood in the place was neither set aside nor is it anywhere else.
    bool hasLostFormer() const { return m_former.fate == Disk::Former::Fate::lost; }

    /// Brings back what was set aside. What another program wrote after `carryOut` stays, which is
    /// an error.
    Outcome undo();

    /// Where what was replaced stands, or what could not be brought back. It is the caller's to
    /// keep or remove: killed before that, the next verb does it.
    const std::optional<Path>& aside() const { return m_aside; }

private:
    Disk::Result<void> putBack();
    Disk::Result<void> takeBack();
    Disk::Result<void> judgeOurs(const Path& taken) const;
    Disk::Result<Path> spare() const;
    Outcome outcome(const Disk::Result<void>& result) const;

    Path m_path;
    const std::optional<std::string>* m_after;
    mode_t m_born;
    std::optional<AtomicWrite::Staged> m_staged;
    AtomicWrite::Staged::Lack m_lack;
    Disk::Former m_former;
    std::optional<Path> m_aside;
    bool m_isDone = false;
};

} // namespace wendlow
