#include "Connectors.h"

#include "ClaudeCode/ClaudeCodeConnector.h"
#include "Codex/CodexConnector.h"
#include "Cursor/CursorConnector.h"
#include "OpenCode/OpenCodeConnector.h"
#include "OwnedNames.h"

namespace wendlow::Connectors {

List all(const std::filesystem::path& home, const std::filesystem::path& bundle,
         const std::filesystem::path& applications) {
    return {std::make_shared<ClaudeCodeConnector>(ClaudeCodePaths::under(home, bundle)),
            std::make_shared<CodexConnector>(CodexPaths::under(home, bundle)),
            std::make_shared<CursorConnector>(CursorPaths::under(home, bundle, applications)),
            std::make_shared<OpenCodeConnector>(OpenCodePaths::under(home, bundle))};
}

std::vector<ClaudeChatRetirement> retirements(const std::filesystem::path& home,
                                              const std::filesystem::path& bundle,
                                              Profile profile) {
    return {{.paths = ClaudeChatPaths::under(home, bundle), .profile = profile}};
}

std::filesystem::path mcpCommand(const std::filesystem::path& bundle) {
    return OwnedNames::program(bundle, OwnedNames::mcpProgram);
}

} // namespace wendlow::Connectors
