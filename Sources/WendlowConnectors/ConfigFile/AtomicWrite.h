#pragma once

#include "ConfigFile/ConfigFileError.h"

#include <expected>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <sys/types.h>

namespace wendlow::AtomicWrite {

using Path = std::filesystem::path;

/// New bytes for a file, written and flushed under a hidden name beside it. Whoever moves the
/// hidden file away takes it; one that nobody took goes with this.
class Staged {
public:
    /// What the file has beside its bytes and this has not.
    struct Lack {
        std::vector<std::string> attributes; ///< as in "its owner": not this user's to give
        bool links = false;                  ///< other names of the file stay with its old bytes
    };

    Staged(Path hidden, Lack lack) : m_hidden(std::move(hidden)), m_lack(std::move(lack)) {}
    ~Staged() { discard(); }
    Staged(Staged&& other) noexcept
        : m_hidden(std::exchange(other.m_hidden, {})), m_lack(std::move(other.m_lack)) {}
    Staged& operator=(Staged&&) = delete;

    const Path& hidden() const { return m_hidden; }
    const Lack& lack() const { return m_lack; }
    void take() { m_hidden.clear(); }

private:
    void discard();

    Path m_hidden;
    Lack m_lack;
};

/// `bytes` for `path`, with what the file there has beside its bytes. A file that is not there yet
/// gets at most the mode `born`, of which the umask takes away what it always does.
std::expected<Staged, ConfigFileError> stage(std::string_view bytes, const Path& path, mode_t born);

/// How a file is written that nobody else writes.
struct Manner {
    mode_t born = 0666;
    std::function<void()> beforeRename = nullptr;
};

/// Stages `bytes` and renames them over `path`, whatever stands there. A failure leaves `path` as
/// it was and no hidden file.
std::expected<void, ConfigFileError> write(std::string_view bytes, const Path& path,
                                           const Manner& manner = {});

} // namespace wendlow::AtomicWrite
