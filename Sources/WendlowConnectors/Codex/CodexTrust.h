#pragma once

#include "BlockEdit.h"
#include "BlockFinding.h"
#include "Codex/CodexHook.h"
#include "Codex/CodexPaths.h"
#include "Codex/CodexTrustSlot.h"
#include "ConfigFile/TOMLEdit.h"
#include "ConnectorReceipt.h"

#include <cstddef>
#include <expected>
#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// The tables in Codex's configuration that hold the trusted hash for each position of a hook. A
/// hook runs only where the hash of what stands at its position is recorded, so that every entry
/// that moves leaves a hash behind for whatever stands there next. A position is named after its
/// hooks file: by some versions as the path is written, by others as it resolves. Where links make
/// the two differ, both names are kept.
class CodexTrust {
public:
    using Hashes = std::set<std::string, std::less<>>;
    using Keys = std::vector<std::string>;
    using IsLive = std::function<bool(std::ptrdiff_t group, std::ptrdiff_t index)>;
    using IsKnown = std::function<bool(const std::string& hash)>;
    template<class T> using Result = std::expected<T, TOMLEditFailure>;

    /// What is to become of the slots that no longer belong to a hook of ours, by their keys.
    struct Judgement {
        std::vector<std::string> clear;  ///< ours, and nobody's by now
        std::vector<std::string> report; ///< once ours, and by now perhaps somebody else's

        bool operator==(const Judgement&) const = default;
    };

    /// `hooksPath` is where the hooks file really lies.
    CodexTrust(const CodexPaths& paths, const std::filesystem::path& hooksPath);

    /// Where the trust of an entry on a prompt is recorded, under each name of its file.
    Keys keys(const HookSite& site) const;
    static TOMLName tableName(std::string_view key);

    /// The slots of hooks on a prompt, of any hooks file.
    static std::vector<CodexTrustSlot> slots(const TOMLDocument& document);
    static std::optional<std::string> recordedHash(std::string_view key,
                                                   const TOMLDocument& document);
    /// Whether Codex's own switch for the hook is off.
    static bool isSwitchedOff(std::string_view key, const TOMLDocument& document);
    /// "the hook switch recorded here is off, ...".
    std::string switchedOffText() const;
    /// Whether the entry at `site`, one of `hook`, is trusted as it stands in the file, whatever
    /// this build would write there. Null: there is no file, no entry.
    BlockFinding find(const TOMLDocument* document, const CodexHookSite* site,
                      const CodexHook& hook) const;

    /// The hashes of all that this product may have caused to be recorded. Asks the disk for the
    /// folders of older scripts.
    static Hashes knownHashes(const CodexHookIdentity& currentIdentity,
                              const std::vector<CodexHookSite>& sites);
    /// `occupied` are the slots in use, `isLive` tells whether an entry stands at a position of the
    /// hooks file, `isKnown` whether a hash is among the known ones. Neither is asked without need.
    /// A slot that could be somebody else's trust is never to be cleared.
    Judgement judge(const TOMLDocument& document, const Keys& occupied,
                    const TrustSlots& receiptSlots, const IsKnown& isKnown,
                    const IsLive& isLive) const;

    /// Records `hash` at a slot; a switch beside it stays. `document` is the scan of `bytes`.
    static Result<InstalledBlock> installed(std::string_view bytes, const TOMLDocument& document,
                                            std::string_view key, std::string_view hash);
    /// Takes the hashes out; a table that holds more stays with the rest.
    static Result<RemovedBlock> removed(std::string_view bytes, const Keys& keys);

private:
    /// Of the hooks file: as written and, where that is another, as it resolves.
    std::vector<std::string> m_hooksPaths;
};

} // namespace wendlow
