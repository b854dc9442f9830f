#pragma once

#include "Support/ClaudeCodeHome.h"

#include <string>
#include <string_view>
#include <vector>

/// For each tool what lies in a person's home before it is connected, and what connecting it does.
namespace wendlow::testing::ToolHomes {

/// A file of the person's that connecting changes.
struct OwnFile {
    std::string_view path; ///< below the home
    std::string_view bytes;
    std::string_view program; ///< ours that it names afterwards
};

struct ToolHome {
    std::string_view name;
    std::vector<OwnFile> files;
    std::vector<std::string_view> made; ///< files that connecting makes, the receipt not among them
};

inline const std::vector<ToolHome>& all() {
    static const std::vector<ToolHome> homes = {
        {"Claude Code",
         {{".claude/settings.json", ClaudeCodeHome::settings, "wendlow-hook"},
          {".claude.json", ClaudeCodeHome::servers, "wendlow-mcp"}},
         {}},
        {"Codex",
         {{".codex/config.toml", "# mine\r\nmodel = \"o5\"\r\n\r\n[tui]\r\ntheme = 'dark' # no end",
           "wendlow-mcp"},
          {".codex/hooks.json",
           R"({"hooks": {"UserPromptSubmit": [{"hooks": [{"type": "command", "command": "~/hi.sh"}]}]}})",
           "wendlow-hook"}},
         {}},
        {"Cursor",
         {{".cursor/hooks.json",
           "{\n\t\"version\": 1,\n\t\"hooks\": { \"stop\": [ { \"command\": \"~/bye.sh\" } ] }\n}",
           "wendlow-hook"},
          {".cursor/mcp.json", "{\"mcpServers\":{\"notes\":{\"command\":\"npx\",\"args\":[]}}}\r\n",
           "wendlow-mcp"}},
         {}},
        {"OpenCode",
         {{".config/opencode/opencode.jsonc",
           "// mine\n{\n  \"theme\": \"dark\", /* as ever */\n  \"mcp\": {\n    // none yet\n  "
           "}\n}\n",
           "wendlow-mcp"}},
         {".config/opencode/plugins/wendlow.js"}}};
    return homes;
}

} // namespace wendlow::testing::ToolHomes
