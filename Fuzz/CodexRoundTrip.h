#pragma once

#include "Codex/CodexTrust.h"
#include "CodexHome.h"
#include "ConfigFile/Backup.h"
#include "InstallRemoveProperty.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <string>

/// What holds for every pair of files.
namespace wendlow::testing {

/// While it lives, temporary homes are made in memory: thousands of commits flush thousands of
/// files.
class InMemory {
public:
    InMemory() {
        if (std::filesystem::is_directory("/dev/shm"))
            ::setenv("TMPDIR", "/dev/shm", 1); // NOLINT(concurrency-mt-unsafe): before any thread
    }
    ~InMemory() { ::unsetenv("TMPDIR"); } // NOLINT(concurrency-mt-unsafe): as above
    InMemory(const InMemory&) = delete;
    InMemory& operator=(const InMemory&) = delete;
};

/// Whether every key that a person keeps in our table of `before` is in that of `after`, as it was.
inline bool keepsPersonsKeys(std::string_view before, std::string_view after) {
    static constexpr std::array<std::string_view, 7> notTheirs{
        "command",         "args", "url", "bearer_token", "bearer_token_env_var", "http_headers",
        "env_http_headers"};
    const auto old = TOMLText::scan(before);
    const auto now = TOMLText::scan(after);
    const TOMLTable* const table = old ? old->table(CodexMCP::tableName()) : nullptr;
    if (table == nullptr)
        return true;
    const auto entries = now->entries(*now->table(CodexMCP::tableName()));
    return std::ranges::all_of(old->entries(*table), [&](const TOMLEntry& entry) {
        return std::ranges::count(notTheirs, entry.key[0]) > 0 ||
               std::ranges::any_of(entries, [&](const TOMLEntry& kept) {
                   return kept.key == entry.key && kept.raw == entry.raw;
               });
    });
}

/// Whether neither file holds anything that is ours, nor the configuration a table for `landing`.
inline bool holdsNothing(const CodexHome& home, const std::string& hooks, const std::string& config,
                         const std::string& landing) {
    const CodexHook hook(home.paths());
    const auto json = hook.read(hooks);
    const auto toml = TOMLText::scan(config);
    return json && toml && hook.sites(json->root(), hooks).empty() &&
           toml->table(CodexMCP::tableName()) == nullptr && CodexMCP::subTables(*toml).empty() &&
           toml->table(CodexTrust::tableName(landing)) == nullptr &&
           !config.contains(hook.identity().trustedHash());
}

/// Connects and disconnects a home with these files. A sentence about what went wrong; nothing: all
/// is well, or these files are refused and left alone.
inline std::optional<std::string>
brokenCodexRoundTrip(const CodexHome& home, const std::string& hooks, const std::string& config) {
    using Result = ConnectorOutcome::Result;
    for (const auto& [file, bytes] :
         {std::pair(home.hooksFile(), hooks), std::pair(home.configFile(), config)}) {
        // The clock stands still, and the names of ever more copies in one second grow too long.
        for (const auto& copy : Backup::all(file))
            std::filesystem::remove(copy);
        put(file, bytes);
    }
    std::filesystem::remove(home.paths().receiptFile);
    const auto connector = home.connector();
    const auto isStill = [&](const std::string& hooksNow, const std::string& configNow) {
        return home.hooks() == hooksNow && home.config() == configNow;
    };

    const Result installed = connector.install().result;
    if (installed != Result::changed)
        return isStill(hooks, config) && home.receipt() == ConnectorReceipt{}
                   ? std::nullopt
                   : std::optional("a refusal changed something");
    if (home.receipt().trustSlots.empty())
        return "no trust was recorded";
    const bool nothingBefore =
        holdsNothing(home, hooks, config, *home.receipt().trustSlots.begin());
    const std::string hooksThen = home.hooks().value_or("");
    const std::string configThen = home.config().value_or("");
    if (!keepsPersonsKeys(config, configThen))
        return "what a person keeps in our table is lost: " + configThen;
    if (nothingBefore && connector.scan().state != ConnectorState::connected)
        return "what was installed is not connected: " + hooksThen + configThen;
    if (connector.install().result != Result::unchanged || !isStill(hooksThen, configThen))
        return "installing twice changes something: " + hooksThen + configThen;

    if (connector.remove().result == Result::refused)
        return "what was installed cannot be removed: " + configThen;
    const std::string hooksNow = home.hooks().value_or("");
    const std::string configNow = home.config().value_or("");
    const auto remaining = TOMLText::scan(configNow);
    if (!remaining || remaining->table(CodexMCP::tableName()) != nullptr ||
        !CodexMCP::subTables(*remaining).empty())
        return "the configuration is not as a removal should leave it: " + configNow;
    const auto rest = CodexHook(home.paths()).read(hooksNow);
    if (!rest || !CodexHook(home.paths()).sites(rest->root(), hooksNow).empty())
        return "the hooks file is not as a removal should leave it: " + hooksNow;
    if (!nothingBefore)
        return std::nullopt;
    if (configNow != config)
        return "the configuration comes back differently: " + configNow;
    if (withoutEmptySpace(hooksNow) != withoutEmptySpace(hooks))
        return "the hooks come back differently: " + hooksNow;
    return std::nullopt;
}

} // namespace wendlow::testing
