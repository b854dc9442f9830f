#pragma once

#include "Files.h"

#include <filesystem>
#include <string_view>

/// What a person's Claude Code files look like after some months: their own hook, their own
/// servers, spellings and spacing that no printer would choose.
namespace wendlow::testing::ClaudeCodeHome {

inline constexpr std::string_view settings = R"bytes({
  "permissions": { "allow": ["Bash(git status)", "Read(~/notes/**)"], "deny": [] },
  "model": "opus",
  "hooks": {
    "UserPromptSubmit": [
      { "hooks": [ { "type": "command", "command": "~/bin/greet.sh", "timeout": 3.50 } ] }
    ],
    "Stop": []
  },
  "env": { "PATH_NOTE": "a\/b \u00e9 é", "EMPTY": "" }
}
)bytes";

inline constexpr std::string_view servers =
    "{\r\n"
    "\t\"numStartups\": 412,\r\n"
    "\t\"mcpServers\": {\r\n"
    "\t\t\"notes\": { \"type\": \"stdio\", \"command\": \"npx\", \"args\": [], \"env\": "
    "{\"TOKEN\": \"${TOKEN}\"} }\r\n"
    "\t},\r\n"
    "\t\"projects\": { \"/home/me/work\": { \"history\": [ { \"display\": \"fix the tests "
    "\\ud83d\\ude00\" } ] } }\r\n"
    "}";

inline void fill(const std::filesystem::path& home) {
    put(home / ".claude/settings.json", settings);
    put(home / ".claude.json", servers);
}

} // namespace wendlow::testing::ClaudeCodeHome
