#include "ConfigFile/Replacement.h"

#include "ConfigFile/HiddenName.h"
#include "Say.h"

#include <cerrno>
#include <tuple>

namespace wendlow {
namespace {

using Fate = Disk::Former::Fate;

/// What stands in the place is another program's; no call of the system says so.
constexpr int isTheirs = EEXIST;

} // namespace

Replacement::Outcome Replacement::outcome(const Disk::Result<void>& result) const {
    if (result)
        return {};
    return std::unexpected(ConfigFileError::writeFailed(
        m_path.string(), result.error() == isTheirs ? say("another program has written it since")
                                                    : Disk::words(result.error())));
}

/// A name for a file that somebody may want back.
Disk::Result<Replacement::Path> Replacement::spare() const {
    auto name = HiddenName::unique(m_path);
    if (name)
        name = HiddenName::numbered(*name, 0);
    return name;
}

Replacement::Outcome Replacement::prepare() {
    if (!*m_after)
        return {};
    auto staged = AtomicWrite::stage(**m_after, m_path, m_born);
    if (!staged)
        return std::unexpected(staged.error());
    m_lack = staged->lack();
    m_staged.emplace(*std::move(staged));
    return {};
}

Replacement::Outcome Replacement::carryOut() {
    const auto aside = spare();
    if (!aside)
        return outcome(std::unexpected(aside.error()));
    if (!m_staged) {
        if (const auto taken = Disk::takeAway(m_path, *aside); !taken)
            return outcome(taken);
        m_former = {.fate = Fate::setAside, .aside = *aside};
    } else {
        auto former = Disk::replace(m_staged->hidden(), m_path, *aside);
        if (!former)
            return outcome(std::unexpected(former.error()));
        m_staged->take();
        m_former = *std::move(former);
    }
    if (m_former.fate == Fate::setAside)
        m_aside = m_former.aside;
    m_isDone = true;
    return {};
}

Replacement::Outcome Replacement::undo() {
    return outcome(m_former.fate == Fate::absent ? takeBack() : putBack());
}

/// Whether what was taken out of the place is what we put there. An error of reading says nothing
/// about that.
Disk::Result<void> Replacement::judgeOurs(const Path& taken) const {
    const auto isOurs = Disk::holds(taken, **m_after);
    if (!isOurs)
        return std::unexpected(isOurs.error());
    return *isOurs ? Disk::Result<void>() : std::unexpected(isTheirs);
}

/// The file that we made goes again.
Disk::Result<void> Replacement::takeBack() {
    const auto aside = spare();
    if (!aside)
        return std::unexpected(aside.error());
    if (const auto taken = Disk::takeAway(m_path, *aside); !taken)
        return taken.error() == ENOENT ? Disk::Result<void>() : taken;
    auto judged = judgeOurs(*aside);
    if (judged)
        judged = Disk::remove(*aside);
    if (!judged)
        if (!Disk::renameToNew(*aside, m_path))
            m_aside = *aside;
    return judged;
}

/// What was set aside goes back to its place.
Disk::Result<void> Replacement::putBack() {
    if (!*m_after) {
        auto back = Disk::renameToNew(*m_aside, m_path);
        if (back)
            m_aside.reset();
        return back;
    }
    const auto name = spare();
    if (!name)
        return std::unexpected(name.error());
    const auto former = Disk::replace(*m_aside, m_path, *name);
    if (!former)
        return std::unexpected(former.error());
    m_aside.reset();
    if (former->fate != Fate::setAside)
        return {};
    m_aside = former->aside;
    const auto judged = judgeOurs(*m_aside);
    if (judged) {
        std::ignore = Disk::remove(*m_aside);
        m_aside.reset();
        return {};
    }
    // Theirs, then, or nobody can tell: it stands in the place again, and the old file aside.
    const auto another = spare();
    if (!another)
        return std::unexpected(another.error());
    if (const auto back = Disk::replace(*m_aside, m_path, *another))
        m_aside = back->fate == Fate::setAside ? std::optional(back->aside) : std::nullopt;
    return judged;
}

} // namespace wendlow
