#include "ToolFiles.h"

#include "ClaudeCode/ClaudeCodePaths.h"
#include "Codex/CodexPaths.h"
#include "Cursor/CursorPaths.h"
#include "OpenCode/OpenCodePaths.h"

#include <algorithm>

namespace wendlow::connect {

namespace {

using Path = std::filesystem::path;

ToolFiles made(std::string program, const ToolPaths& paths, std::initializer_list<Path> more = {}) {
    ToolFiles tool{.program = std::move(program), .application = std::nullopt, .files = {}};
    std::vector<Path> all{paths.configDirectory, paths.hooksFile, paths.serversFile};
    all.insert(all.end(), more);
    for (Path& path : all)
        if (std::ranges::find(tool.files, path) == tool.files.end())
            tool.files.push_back(std::move(path));
    return tool;
}

} // namespace

ToolFiles ToolFiles::of(std::string_view id, const Doctor::Places& places) {
    const auto claude = ClaudeCodePaths::under(places.home, places.bundle);
    const auto codex = CodexPaths::under(places.home, places.bundle);
    const auto cursor = CursorPaths::under(places.home, places.bundle, places.applications);
    const auto openCode = OpenCodePaths::under(places.home, places.bundle);
    if (id == claude.tool)
        return made("claude", claude, {claude.userFile()});
    if (id == codex.tool)
        return made("codex", codex);
    if (id == openCode.tool)
        return made("opencode", openCode, {openCode.otherServersFile(), openCode.pluginsDirectory});
    ToolFiles tool = made("cursor", cursor);
    tool.application = cursor.cursorApp;
    return tool;
}

} // namespace wendlow::connect
