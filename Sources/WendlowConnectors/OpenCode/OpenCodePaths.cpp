#include "OpenCode/OpenCodePaths.h"

#include "OwnedNames.h"

namespace wendlow {

OpenCodePaths OpenCodePaths::under(const Path& home, const Path& bundle) {
    OpenCodePaths paths{
        ToolPaths::under(home, bundle, "opencode", ".config/opencode", ".config/opencode/plugins",
                         ".config/opencode/opencode.jsonc"),
        home / ".config/opencode/plugins", home / "AGENTS.md", home / ".local/share/opencode"};
    paths.hooksFile /= OwnedNames::plugin;
    return paths;
}

OpenCodePaths::Path OpenCodePaths::otherServersFile() const {
    return configDirectory / "opencode.json";
}

OpenCodePaths::Path OpenCodePaths::sessionDatabase() const {
    return dataDirectory / "opencode.db";
}

OpenCodePaths::Path OpenCodePaths::configAgentsFile() const {
    return configDirectory / "AGENTS.md";
}

} // namespace wendlow
