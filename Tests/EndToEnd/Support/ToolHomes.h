#pragma once

#include "Files.h"
#include "Support/ClaudeCodeHome.h"

#include <filesystem>
#include <map>
#include <string>

/// What a person has of every tool, in spellings and spacing that no printer would choose.
namespace wendlow::testing::ToolHomes {

using Files = std::map<std::string, std::string>;

inline const Files codex{
    {".codex/hooks.json", R"({"hooks": {"Stop": []}, "n": 3.50})"},
    {".codex/config.toml", "# mine\r\nmodel = \"o5\" # no end"},
};
inline const Files cursor{
    {".cursor/hooks.json", "{\n\t\"version\": 1,\n\t\"hooks\": {\n\t\t\"stop\": [{\"command\": "
                           "\"a\\/b\"}]\n\t}\n}"},
    {".cursor/mcp.json", "{\"mcpServers\": {\"mine\": {\"url\": \"http://x\"}}}\r\n"},
};
inline const Files openCode{
    {".config/opencode/opencode.jsonc", "{ // mine\n  \"theme\": \"system\" /* stays */\n}\n"},
    {".config/opencode/themes/own.json", "{}"},
};

inline void fill(const std::filesystem::path& home) {
    ClaudeCodeHome::fill(home);
    for (const Files& tool : {codex, cursor, openCode})
        for (const auto& [name, bytes] : tool)
            put(home / name, bytes);
}

} // namespace wendlow::testing::ToolHomes
