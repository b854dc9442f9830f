#include "Codex/CodexPaths.h"

namespace wendlow {

CodexPaths CodexPaths::under(const Path& home, const Path& bundle) {
    return {ToolPaths::under(home, bundle, "codex", ".codex", ".codex/hooks.json",
                             ".codex/config.toml"),
            home / "AGENTS.md"};
}

CodexPaths::Path CodexPaths::sessionsDirectory() const {
    return configDirectory / "sessions";
}

CodexPaths::Path CodexPaths::globalMemoryFile() const {
    return configDirectory / "AGENTS.md";
}

} // namespace wendlow
