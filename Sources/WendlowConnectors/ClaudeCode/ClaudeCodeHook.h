#pragma once

#include "BlockFinding.h"
#include "ClaudeCode/ClaudeCodePaths.h"
#include "HookGroups.h"
#include "HookPlaces.h"
#include "JSONBlock.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// The four hook entries in Claude Code's settings file: three on each prompt, in one group, and
/// one before any of the product's own MCP tools runs. Pure on bytes; any thread.
class ClaudeCodeHook {
public:
    using Readable = JSONBlock::Readable;
    template<class T> using Result = JSONBlock::Result<T>;

    explicit ClaudeCodeHook(ClaudeCodePaths paths);

    /// `{"type": "command", "command": command, "timeout": 3}`.
    JSONLiteral entry(std::string_view command) const;
    /// The three slot entries, in their order.
    const JSONLiteral::Array& entries() const { return m_entries; }
    const JSONLiteral& preToolGroup() const { return m_preToolGroup; }

    /// The document, unless it does not scan or a name is repeated where an edit could go wrong.
    Readable read(std::string_view bytes) const;
    /// Our entries under any event, in document order.
    std::vector<HookSite> sites(const JSONNode& root) const;
    /// What the file holds of ours, `document` being what `read` made of its bytes. Asks the disk
    /// whether the hook program is there.
    BlockFinding find(std::string_view bytes, const Readable& document) const;
    /// Whether the group that holds `site` is the pre-tool group, exactly.
    bool isExactPreTool(const HookSite& site, const JSONNode& root, std::string_view bytes) const;
    /// Whether the file's sites are the four entries in their places, exactly.
    bool converged(const std::vector<HookSite>& sites, const JSONNode& root,
                   std::string_view bytes) const;

    /// The smallest edit that leaves exactly the four entries, wherever older, misplaced or
    /// repeated ones were. Entries that are not ours stay. The second form takes the scan of
    /// `bytes` that was made before.
    Result<InstalledBlock> installed(std::string_view bytes) const;
    Result<InstalledBlock> installed(std::string_view bytes, const JSONDocument& document) const;
    /// Takes our entries out, and the containers that `created` says are ours and that are then
    /// empty.
    Result<RemovedBlock> removed(std::string_view bytes, const std::set<Created>& created) const;
    Result<RemovedBlock> removed(std::string_view bytes, const JSONDocument& document,
                                 const std::set<Created>& created) const;

private:
    struct Draft;

    std::vector<std::string> driftReasons(const std::vector<HookSite>& sites, const JSONNode& root,
                                          std::string_view bytes) const;
    const HookSite* slotSite(const std::vector<HookSite>& sites, const JSONNode& root) const;
    Result<void> discardOthers(Draft& draft) const;
    Result<void> installSlots(Draft& draft) const;
    Result<void> installPreTool(Draft& draft) const;

    ClaudeCodePaths m_paths;
    std::vector<std::string> m_currents;
    HookPlaces m_places;
    JSONLiteral::Array m_entries;
    JSONLiteral m_preToolGroup;
};

} // namespace wendlow
