#pragma once

#include "ClaudeCode/ClaudeCodeConnector.h"
#include "Files.h"
#include "TemporaryHome.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

namespace wendlow::testing {

/// A home with an application in it, its programs there, and a connector for both.
class ClaudeCodeHome {
public:
    ClaudeCodeHome() {
        put(paths().hookBinary, "program");
        put(paths().mcpBinary, "program");
    }

    std::filesystem::path path(const std::string& name) const { return m_home / name; }
    std::filesystem::path bundle() const { return m_home / "Wendlow.app"; }
    ClaudeCodePaths paths() const { return ClaudeCodePaths::under(m_home.path(), bundle()); }
    std::string settings() const { return paths().hooksFile.string(); }
    std::string servers() const { return paths().serversFile.string(); }
    /// The clock stands still, so that the names of copies are known.
    ClaudeCodeConnector connector(std::function<void()> beforeRename = {}) const {
        return ClaudeCodeConnector(
            paths(), {.now = [] { return Transaction::Date(std::chrono::seconds(1'800'000'000)); },
                      .beforeRename = std::move(beforeRename)});
    }
    /// Nothing: no such file is made.
    void fill(const std::optional<std::string>& settingsBytes,
              const std::optional<std::string>& serversBytes) const {
        std::filesystem::create_directories(paths().configDirectory);
        if (settingsBytes)
            put(settings(), *settingsBytes);
        if (serversBytes)
            put(servers(), *serversBytes);
    }

private:
    TemporaryHome m_home;
};

} // namespace wendlow::testing
