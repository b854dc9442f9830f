#pragma once

#include "Codex/CodexConnector.h"
#include "Files.h"
#include "TemporaryHome.h"

#include <chrono>
#include <optional>
#include <string>

namespace wendlow::testing {

/// A home with an application and Codex in it, and a connector for both.
class CodexHome {
public:
    CodexHome() {
        put(paths().hookBinary, "program", 0755);
        put(paths().mcpBinary, "program");
        std::filesystem::create_directory(paths().configDirectory);
    }

    std::filesystem::path path(const std::string& name) const { return m_home / name; }
    CodexPaths paths() const { return CodexPaths::under(m_home.path(), m_home / "Wendlow.app"); }
    std::string hooksFile() const { return paths().hooksFile.string(); }
    std::string configFile() const { return paths().serversFile.string(); }
    std::optional<std::string> hooks() const { return get(paths().hooksFile); }
    std::optional<std::string> config() const { return get(paths().serversFile); }
    ConnectorReceipt receipt() const { return ReceiptStore{paths().receiptFile}.read(); }
    /// The clock stands still, so that the names of copies are known.
    CodexConnector connector() const {
        return CodexConnector(
            paths(), {.now = [] { return Transaction::Date(std::chrono::seconds(1'800'000'000)); },
                      .beforeRename = {}});
    }

    /// `text` with "@ours" made into the entry of this home's application on one line, "@old" into
    /// that of another copy, "@script" into one of an older script, "@theirs" into a person's;
    /// "@server" into the body of the server's table, "@slot" into how a slot's key begins, "@hash"
    /// into the hash of our entry, and "@home" into the home.
    std::string filled(const std::string& text) const {
        const auto entry = [](const std::string& command, const std::string& rest) {
            return R"({"type":"command","command":")" + command + '"' + rest + "}";
        };
        const std::string rest =
            R"(,"statusMessage":"Loading Wendlow rules and memory","timeout":3)";
        const std::string limit = R"(,"additionalContextLimit":7500)";
        return replaced(
            text,
            {{"@ours", entry(paths().hookCommand(), rest + limit)},
             {"@old", entry("/Old/Wendlow.app/Contents/MacOS/wendlow-hook --harness codex", rest)},
             {"@script", entry("python3 @home/fenmoor/wendlow/Scripts/wendlow-hook.py", rest)},
             {"@theirs", entry("lint", "")},
             {"@server", "command = \"" + paths().mcpCommand() + "\"\nargs = []\n"},
             {"@slot", "@home/.codex/hooks.json:user_prompt_submit"},
             {"@hash", CodexHook(paths()).identity().trustedHash()},
             {"@home", m_home.path().string()}});
    }

private:
    TemporaryHome m_home;
};

} // namespace wendlow::testing
