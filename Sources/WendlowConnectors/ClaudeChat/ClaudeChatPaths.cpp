#include "ClaudeChat/ClaudeChatPaths.h"

namespace wendlow {

ClaudeChatPaths ClaudeChatPaths::under(const Path& home, const Path& bundle) {
    const Path support = home / "Library/Application Support";
    return {
        .configDirectory = support / "Claude",
        .configFile = support / "Claude/claude_desktop_config.json",
        .receiptFile = support / "Wendlow/Connectors/claude-chat.json",
        .mcpBinary = bundle / "Contents/MacOS/wendlow-mcp",
    };
}

} // namespace wendlow
