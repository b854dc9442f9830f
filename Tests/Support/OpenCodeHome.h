#pragma once

#include "Files.h"
#include "OpenCode/OpenCodeConnector.h"
#include "OpenCode/OpenCodePlugin.h"
#include "TemporaryHome.h"

#include <optional>
#include <string>

namespace wendlow::testing {

/// A home with an application and OpenCode in it, and a connector for both.
class OpenCodeHome {
public:
    OpenCodeHome() {
        put(paths().hookBinary, "program", 0755);
        put(paths().mcpBinary, "program");
        std::filesystem::create_directories(paths().configDirectory);
    }

    std::filesystem::path path(const std::string& name) const { return m_home / name; }
    OpenCodePaths paths() const {
        return OpenCodePaths::under(m_home.path(), m_home / "Wendlow.app");
    }
    std::string pluginFile() const { return paths().hooksFile.string(); }
    std::optional<std::string> config() const { return get(paths().serversFile); }
    OpenCodeConnector connector() const { return OpenCodeConnector(paths()); }
    std::string source() const { return OpenCodePlugin::source(paths().hookBinary); }

private:
    TemporaryHome m_home;
};

} // namespace wendlow::testing
