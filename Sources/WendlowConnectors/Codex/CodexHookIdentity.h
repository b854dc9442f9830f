#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace wendlow {

/// What Codex takes a hook on a prompt to be. It runs a hook only where the hash of this is
/// recorded for the hook's position, so that a changed hook has to be trusted anew. A matcher of
/// its group is no part of it: a prompt has nothing to match. Pure; any thread.
struct CodexHookIdentity {
    std::string command;
    std::optional<std::string> statusMessage;
    std::int64_t timeout = 0; ///< seconds, as Codex counts them: see `hashedTimeout`
    bool isAsync = false;
    std::optional<std::int64_t> additionalContextLimit;

    /// What Codex takes a hook's timeout to be; nothing: the hook states none.
    static std::int64_t hashedTimeout(std::optional<std::int64_t> stated);
    /// What older versions wrote: scripts in a folder, one hook for each.
    static std::vector<CodexHookIdentity>
    legacyIdentities(const std::filesystem::path& scriptsDirectory, std::int64_t timeout);

    /// The text that is hashed. It has to be Codex's own, byte by byte: keys sorted, no spaces,
    /// absent fields left out.
    std::string canonicalJSON() const;
    /// "sha256:" and 64 lower-case hexadecimal digits.
    std::string trustedHash() const;

    bool operator==(const CodexHookIdentity&) const = default;
};

} // namespace wendlow
