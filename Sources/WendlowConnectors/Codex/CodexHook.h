#pragma once

#include "BlockFinding.h"
#include "Codex/CodexHookIdentity.h"
#include "Codex/CodexPaths.h"
#include "ConfigFile/TOMLDocument.h"
#include "HookGroups.h"
#include "JSONBlock.h"

#include <array>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// An entry of ours with all that Codex hashes of it.
struct CodexHookSite : HookSite {
    std::optional<std::string> statusMessage;
    std::optional<std::int64_t> timeout; ///< as it is hashed; nothing: it is not a whole number
    bool isAsync = false;
    std::optional<std::int64_t> additionalContextLimit;

    /// As the file says it; nothing where it says no whole timeout.
    std::optional<CodexHookIdentity> identity() const;

    bool operator==(const CodexHookSite&) const = default;
};

/// The one hook entry in Codex's hooks file, on each prompt. Codex knows every hook by its
/// position, so that no entry that is not ours is moved without need. Pure on bytes; any thread.
class CodexHook {
public:
    using Readable = JSONBlock::Readable;
    template<class T> using Result = JSONBlock::Result<T>;

    explicit CodexHook(CodexPaths paths);

    /// `{"type", "command", "statusMessage", "timeout", "additionalContextLimit"}`.
    JSONLiteral entry() const;
    const JSONLiteral& group() const { return m_group; }
    /// Of the entry that this build writes.
    const CodexHookIdentity& identity() const { return m_identity; }
    /// What Codex would have to have recorded for an entry to run it; nothing where no hash can be
    /// made of it. That of the entry which this build writes was hashed once for all.
    std::optional<std::string> trustedHash(const CodexHookSite& site) const;

    /// The document, unless it does not scan or a name is repeated where an edit could go wrong.
    Readable read(std::string_view bytes) const;
    /// Our entries under any event, in document order. `bytes` are what was scanned.
    std::vector<CodexHookSite> sites(const JSONNode& root, std::string_view bytes) const;
    /// What the file holds of ours, `document` being what `read` made of its bytes. Asks the disk
    /// whether the hook program is there.
    BlockFinding find(std::string_view bytes, const Readable& document) const;
    /// The same where `sites` of the document are known.
    BlockFinding find(std::string_view bytes, const Readable& document,
                      const std::vector<CodexHookSite>& sites) const;

    /// An installed block, and where the entry then stands.
    struct Installed : InstalledBlock {
        CodexHookSite site;
    };
    /// The smallest edit that leaves exactly one entry, on a prompt, wherever older, misplaced or
    /// repeated ones were. One that is there already stays in its place. `document` is the scan of
    /// `bytes`.
    Result<Installed> installed(std::string_view bytes, const JSONDocument& document) const;
    /// Takes our entries out, and the containers that `created` says are ours and that are then
    /// empty.
    Result<RemovedBlock> removed(std::string_view bytes, const JSONDocument& document,
                                 const std::set<Created>& created) const;

    /// Whether an entry, whoever's it is, states a timeout that is not a whole number. Codex then
    /// reads nothing of the file.
    static bool holdsBrokenTimeout(const JSONNode& root, std::string_view bytes);

    /// Whether Codex's configuration switches every hook off.
    static bool areHooksOff(const TOMLDocument& config);

    /// Of the sites in one file, the one that Codex runs on a prompt; null: there is none.
    static const CodexHookSite* onPrompt(const std::vector<CodexHookSite>& sites);
    /// Whether anything stands at this position among the entries on a prompt.
    static bool isLive(const JSONNode& root, std::ptrdiff_t group, std::ptrdiff_t index);
    /// The commands of the entries that are not ours and that stand elsewhere in `after`, an edit
    /// of `before`.
    std::vector<std::string> movedForeignEntries(const JSONNode& before,
                                                 const JSONNode& after) const;

private:
    std::vector<std::string> driftReasons(const std::vector<CodexHookSite>& sites,
                                          const JSONNode& root, std::string_view bytes) const;
    Result<void> discardOthers(JSONDraft& draft) const;
    Result<void> writeEntry(JSONDraft& draft, std::set<Created>& created) const;

    CodexPaths m_paths;
    std::array<std::string, 1> m_currents;
    JSONLiteral m_group;
    CodexHookIdentity m_identity;
    std::string m_trustedHash; ///< of that identity
};

} // namespace wendlow
