#pragma once

#include "Files.h"
#include "OpenCode/OpenCodeConnector.h"
#include "OpenCode/OpenCodePlugin.h"
#include "TemporaryHome.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace wendlow::testing {

/// A home with an application and OpenCode in it, and a connector for both.
class OpenCodeHome {
public:
    OpenCodeHome() {
        put(paths().hookBinary, "program");
        put(paths().mcpBinary, "program");
        std::filesystem::create_directories(paths().configDirectory);
    }

    std::filesystem::path path(const std::string& name) const { return m_home / name; }
    OpenCodePaths paths() const {
        return OpenCodePaths::under(m_home.path(), m_home / "Wendlow.app");
    }
    std::string configFile() const { return paths().serversFile.string(); }
    std::string pluginFile() const { return paths().hooksFile.string(); }
    std::optional<std::string> config() const { return get(paths().serversFile); }
    std::optional<std::string> plugin() const { return get(paths().hooksFile); }
    ConnectorReceipt receipt() const { return ReceiptStore{paths().receiptFile}.read(); }
    /// The clock stands still, so that the names of copies are known.
    OpenCodeConnector connector(std::function<void()> beforeRename = {}) const {
        return OpenCodeConnector(
            paths(), {.now = [] { return Transaction::Date(std::chrono::seconds(1'800'000'000)); },
                      .beforeRename = std::move(beforeRename)});
    }
    std::string source() const { return OpenCodePlugin::source(paths().hookBinary); }
    /// As another copy of the application would write it.
    static std::string otherSource() {
        return OpenCodePlugin::source("/Old/Wendlow.app/Contents/MacOS/wendlow-hook");
    }

    /// `text` with "@command" made into the path of our server program, "@entry" into our entry on
    /// one line, "@hook" into the path of our hook program, and "@home" into the home.
    std::string filled(const std::string& text) const {
        return replaced(text,
                        {{"@entry", R"({"type":"local","command":["@command"],"enabled":true})"},
                         {"@command", paths().mcpCommand()},
                         {"@hook", paths().hookBinary.string()},
                         {"@home", m_home.path().string()}});
    }

private:
    TemporaryHome m_home;
};

} // namespace wendlow::testing
