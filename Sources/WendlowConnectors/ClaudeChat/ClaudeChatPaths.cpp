#include "ClaudeChat/ClaudeChatPaths.h"

#include "OwnedNames.h"

namespace wendlow {

ClaudeChatPaths ClaudeChatPaths::under(const Path& home, const Path& bundle) {
    const Path support = OwnedNames::support(home);
    return {
        .configDirectory = support / "Claude",
        .configFile = support / "Claude/claude_desktop_config.json",
        .receiptFile = OwnedNames::receipt(home, "claude-chat"),
        .mcpBinary = OwnedNames::program(bundle, OwnedNames::mcpProgram),
    };
}

} // namespace wendlow
