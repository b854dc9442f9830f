#include "Codex/CodexTrust.h"

#include "ConfigFile/Disk.h"
#include "Say.h"

#include <algorithm>
#include <array>
#include <utility>

namespace wendlow {

namespace {

constexpr std::string_view hashKey = "trusted_hash";

/// The table of a slot; null where there is none that could be edited.
const TOMLTable* tableOf(std::string_view key, const TOMLDocument& document) {
    const TOMLTable* const table = document.table(CodexTrust::tableName(key));
    return table != nullptr && !table->isArrayElement ? table : nullptr;
}

const TOMLEntry* entryOf(std::string_view key, std::string_view name,
                         const TOMLDocument& document) {
    const TOMLTable* const table = tableOf(key, document);
    if (table == nullptr)
        return nullptr;
    const auto entries = document.entries(*table);
    const auto found =
        std::ranges::find_if(entries, [&](const TOMLEntry& entry) { return entry.isKey(name); });
    return found == entries.end() ? nullptr : &*found;
}

/// The folder of the script that an entry of an older version runs.
std::optional<std::filesystem::path> scriptsDirectory(std::string_view command) {
    constexpr std::string_view interpreter = "python3 ";
    if (!command.starts_with(interpreter))
        return std::nullopt;
    const std::string_view script = command.substr(interpreter.size());
    if (!script.starts_with('/') || script.contains(' '))
        return std::nullopt;
    auto directory = std::filesystem::path(script).parent_path();
    return Disk::isDirectory(directory) ? std::optional(std::move(directory)) : std::nullopt;
}

} // namespace

CodexTrust::CodexTrust(const CodexPaths& paths, const std::filesystem::path& hooksPath)
    : m_hooksPaths{paths.hooksFile.string()} {
    if (hooksPath != paths.hooksFile)
        m_hooksPaths.push_back(hooksPath.string());
}

CodexTrust::Keys CodexTrust::keys(const HookSite& site) const {
    Keys keys;
    for (const std::string& path : m_hooksPaths)
        keys.push_back(CodexTrustSlot::at(path, site.group, site.entry).key);
    return keys;
}

TOMLName CodexTrust::tableName(std::string_view key) {
    return {"hooks", "state", std::string(key)};
}

std::vector<CodexTrustSlot> CodexTrust::slots(const TOMLDocument& document) {
    std::vector<CodexTrustSlot> found;
    for (const TOMLTable& table : document.tables()) {
        if (table.isArrayElement || table.name.size() != 3 || table.name[0] != "hooks" ||
            table.name[1] != "state")
            continue;
        auto slot = CodexTrustSlot::parse(table.name[2]);
        if (slot && slot->event == CodexTrustSlot::promptEvent)
            found.push_back(*std::move(slot));
    }
    return found;
}

std::optional<std::string> CodexTrust::recordedHash(std::string_view key,
                                                    const TOMLDocument& document) {
    const TOMLEntry* const entry = entryOf(key, hashKey, document);
    return entry != nullptr && entry->text ? std::optional<std::string>(*entry->text)
                                           : std::nullopt;
}

bool CodexTrust::isSwitchedOff(std::string_view key, const TOMLDocument& document) {
    const TOMLEntry* const entry = entryOf(key, "enabled", document);
    return entry != nullptr && entry->raw == "false";
}

std::string CodexTrust::switchedOffText() const {
    return say(
        "the hook switch recorded here is off, so Codex does not call the Wendlow hook entry "
        "in {}",
        m_hooksPaths.front());
}

BlockFinding CodexTrust::find(const TOMLDocument* document, const CodexHookSite* site,
                              const CodexHook& hook) const {
    if (document == nullptr)
        return {BlockFinding::FileAbsent{}};
    if (site == nullptr)
        return {BlockFinding::Absent{}};
    const auto computed = hook.trustedHash(*site);
    if (!computed)
        return {BlockFinding::Drifted{
            {say("the timeout on the Wendlow hook entry in {} is not a whole number, so the "
                 "identity Codex hashes cannot be computed",
                 m_hooksPaths.front())}}};
    std::vector<std::string> reasons;
    for (const std::string& path : m_hooksPaths) {
        const std::string key = CodexTrustSlot::at(path, site->group, site->entry).key;
        const auto recorded = recordedHash(key, *document);
        if (!recorded)
            reasons.push_back(
                say("no trusted hash is recorded here for the Wendlow hook entry in {}", path));
        else if (recorded != computed)
            reasons.push_back(say("the trusted hash recorded here is {} and the Wendlow hook entry "
                                  "in {} hashes to {}",
                                  *recorded, path, *computed));
        else if (isSwitchedOff(key, *document) &&
                 std::ranges::count(reasons, switchedOffText()) == 0)
            reasons.push_back(switchedOffText());
    }
    return BlockFinding::from(std::move(reasons));
}

CodexTrust::Hashes CodexTrust::knownHashes(const CodexHookIdentity& currentIdentity,
                                           const std::vector<CodexHookSite>& sites) {
    Hashes known{currentIdentity.trustedHash()};
    for (const CodexHookSite& site : sites) {
        if (const auto identity = site.identity(); identity && *identity != currentIdentity)
            known.insert(identity->trustedHash());
        if (const auto directory = scriptsDirectory(site.command))
            for (const CodexHookIdentity& legacy :
                 CodexHookIdentity::legacyIdentities(*directory, CodexPaths::hookTimeoutSeconds))
                known.insert(legacy.trustedHash());
    }
    return known;
}

CodexTrust::Judgement CodexTrust::judge(const TOMLDocument& document, const Keys& occupied,
                                        const TrustSlots& receiptSlots, const IsKnown& isKnown,
                                        const IsLive& isLive) const {
    const auto isIn = [](const auto& all, const std::string& one) {
        return std::ranges::find(all, one) != all.end();
    };
    Judgement judgement;
    for (CodexTrustSlot& slot : slots(document)) {
        if (isIn(occupied, slot.key))
            continue;
        const auto hash = recordedHash(slot.key, document);
        const bool isOurs = hash && isKnown(*hash);
        // Of another hooks file nothing is known here, so all its positions count as in use.
        const bool inUse = !isIn(m_hooksPaths, slot.hooksPath) || isLive(slot.group, slot.index);
        if (receiptSlots.contains(slot.key)) {
            // Since we wrote it, a person may have come to trust what stands there now.
            if (isOurs || !hash || !inUse)
                judgement.clear.push_back(std::move(slot.key));
        } else if (isOurs) {
            (inUse ? judgement.report : judgement.clear).push_back(std::move(slot.key));
        }
    }
    return judgement;
}

CodexTrust::Result<InstalledBlock> CodexTrust::installed(std::string_view bytes,
                                                         const TOMLDocument& document,
                                                         std::string_view key,
                                                         std::string_view hash) {
    InstalledBlock block;
    if (recordedHash(key, document) == hash)
        return block;
    bool appended = false;
    if (const TOMLTable* const table = tableOf(key, document)) {
        auto edited = TOMLEdit::setKey(bytes, *table, document.entries(*table), hashKey,
                                       TOMLText::quote(hash));
        block.bytes = std::move(edited.bytes);
        appended = edited.appendedTrailingNewline;
    } else {
        const std::array lines{TOMLEdit::Line{std::string(hashKey), TOMLText::quote(hash)}};
        auto edited = TOMLEdit::setTable(bytes, tableName(key), lines);
        if (!edited)
            return std::unexpected(edited.error());
        block.bytes = std::move(edited->bytes);
        block.created.insert(Created::codexTrustTable);
        appended = edited->appendedTrailingNewline;
    }
    if (appended)
        block.created.insert(Created::codexConfigTrailingNewline);
    return block;
}

CodexTrust::Result<RemovedBlock> CodexTrust::removed(std::string_view bytes, const Keys& keys) {
    RemovedBlock block;
    for (const std::string& key : keys) {
        const std::string_view now = block.bytes ? *block.bytes : bytes;
        const auto document = TOMLText::scan(now);
        if (!document)
            return std::unexpected(document.error());
        const TOMLTable* const table = tableOf(key, *document);
        if (table == nullptr)
            continue;
        const TOMLEntry* const hash = entryOf(key, hashKey, *document);
        const bool holdsMore = document->entries(*table).size() > (hash != nullptr ? 1U : 0U);
        if (!holdsMore) {
            auto edited = TOMLEdit::removeTable(now, tableName(key));
            if (!edited)
                return std::unexpected(edited.error());
            block.bytes = *std::move(edited);
        } else if (hash != nullptr) {
            block.bytes = TOMLEdit::removeKey(now, *hash);
        }
    }
    return block;
}

} // namespace wendlow
