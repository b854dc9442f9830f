#include "Connectors.h"

#include "ClaudeCode/ClaudeCodeConnector.h"
#include "Codex/CodexConnector.h"
#include "Cursor/CursorConnector.h"

namespace wendlow::Connectors {

std::string_view text(Profile profile) {
    return profile == Profile::dev ? "dev" : "production";
}

List all(const std::filesystem::path& home, const std::filesystem::path& bundle,
         const std::filesystem::path& applications) {
    return {std::make_shared<ClaudeCodeConnector>(ClaudeCodePaths::under(home, bundle)),
            std::make_shared<CodexConnector>(CodexPaths::under(home, bundle)),
            std::make_shared<CursorConnector>(CursorPaths::under(home, bundle, applications))};
}

std::filesystem::path mcpCommand(const std::filesystem::path& bundle) {
    return bundle / "Contents/MacOS/wendlow-mcp";
}

} // namespace wendlow::Connectors
