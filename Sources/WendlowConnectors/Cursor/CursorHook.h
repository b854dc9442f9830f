#pragma once

#include "BlockFinding.h"
#include "Cursor/CursorHooksVersion.h"
#include "Cursor/CursorPaths.h"
#include "HookCommand.h"
#include "HookPlaces.h"
#include "JSONBlock.h"
#include "JSONDraft.h"

#include <array>
#include <cstddef>
#include <expected>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace wendlow {

/// One hook entry of ours. Cursor's entries stand in an event's list themselves, without groups.
struct CursorHookSite {
    std::string event;
    std::ptrdiff_t index = 0; ///< in the event's list
    std::string command;
    HookOwnership tier = HookOwnership::current;

    JSONPath listPath() const; ///< of the event's list
    JSONPath entryPath() const;

    bool operator==(const CursorHookSite&) const = default;
};

/// The two hook entries in Cursor's hooks file: one on each prompt, and one before certain tools
/// run. Pure on bytes; any thread.
class CursorHook {
public:
    using Readable = JSONBlock::Readable;
    template<class T> using Result = JSONBlock::Result<T>;

    /// What a file that does not exist is planned from.
    static constexpr std::string_view seed = "{\n  \"version\": 1\n}\n";

    explicit CursorHook(CursorPaths paths);

    /// `{"command": ...}`.
    JSONLiteral entry() const;
    /// `{"command": ..., "matcher": ..., "timeout": 3}`.
    JSONLiteral preToolEntry() const;

    /// The document, unless it does not scan or a name is repeated where an edit could go wrong.
    Readable read(std::string_view bytes) const;
    /// What the file says of its version. `bytes` are what was scanned.
    CursorHooksVersion version(const JSONNode& root, std::string_view bytes) const;
    /// Our entries under any event, in document order.
    std::vector<CursorHookSite> sites(const JSONNode& root) const;
    /// What the file holds of ours, `document` being what `read` made of its bytes. Asks the disk
    /// whether the hook program is there.
    BlockFinding find(std::string_view bytes, const Readable& document) const;
    /// The same where `own` are known, the entries of ours in it.
    BlockFinding find(std::string_view bytes, const Readable& document,
                      const std::vector<CursorHookSite>& own) const;
    /// Whether the file's sites are the two entries in their places, exactly.
    bool converged(const std::vector<CursorHookSite>& sites, const JSONNode& root,
                   std::string_view bytes) const;

    /// An installed block, and what it wrote over.
    struct Installed : InstalledBlock {
        /// The members that a person had put into an entry of ours: name and value, cut short.
        std::vector<std::string> replaced;
    };
    using Failure = std::variant<CursorHookError, JSONEditFailure>;
    /// The smallest edit that leaves exactly the two entries, wherever older, misplaced or repeated
    /// ones were. Entries that are not ours stay. Refuses a file of a version that this build has
    /// not read. The second form takes the scan of `bytes` that was made before.
    std::expected<Installed, Failure> installed(std::string_view bytes) const;
    std::expected<Installed, Failure> installed(std::string_view bytes,
                                                const JSONDocument& document) const;
    /// Takes our entries out, of a file of any version, and the containers that `created` says are
    /// ours and that are then empty.
    Result<RemovedBlock> removed(std::string_view bytes, const std::set<Created>& created) const;
    Result<RemovedBlock> removed(std::string_view bytes, const JSONDocument& document,
                                 const std::set<Created>& created) const;

    /// Whether the bytes are no more than a seed: an object with nothing in it but version 1, if
    /// that.
    static bool isSeedResidue(std::string_view bytes);

private:
    struct Draft;
    /// One of our entries and where it belongs.
    struct Placement {
        std::string_view event;
        JSONLiteral entry;
        std::string command;
    };

    Result<void> discardOthers(JSONDraft& draft) const;
    Result<void> place(Draft& draft, const Placement& placement) const;

    CursorPaths m_paths;
    std::array<std::string, 2> m_currents;
    HookPlaces m_places;
    std::array<Placement, 2> m_placements;
};

/// The failure as a sentence without its file.
std::string description(const CursorHook::Failure& failure);

} // namespace wendlow
