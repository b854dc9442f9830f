#pragma once

#include "BlockEdit.h"
#include "BlockFinding.h"
#include "Codex/CodexPaths.h"
#include "ConfigFile/TOMLEdit.h"
#include "PersonsPart.h"

#include <cstddef>
#include <expected>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// The table `[mcp_servers.wendlow]` in Codex's configuration. Two keys of it are ours, `command`
/// and `args`; what else a person keeps there is theirs, and so is whether the server is on. Tables
/// `tools` under it are where Codex notes what a person allowed. Pure on bytes; any thread.
class CodexMCP {
public:
    enum class Ownership { ours, handWritten };
    enum class Verb { install, remove };
    template<class T> using Result = std::expected<T, TOMLEditFailure>;
    using Entries = std::span<const TOMLEntry>;

    explicit CodexMCP(CodexPaths paths);

    static const TOMLName& tableName();

    /// Whose the table with these entries is. `created` is the receipt's.
    Ownership ownership(Entries entries, const std::set<Created>& created) const;
    /// Whether our keys among these are as this build writes them, in any order, and none is there
    /// that Codex would not start with beside them. Codex leaves empty `args` out when it writes.
    bool matchesOurShape(Entries entries) const;
    static bool isSwitchedOff(const TOMLDocument& document);
    /// "the Wendlow MCP entry here is switched off, ...".
    static std::string switchedOffText();
    /// The tables whose names extend that of ours.
    static std::vector<const TOMLTable*> subTables(const TOMLDocument& document);
    /// How many lines in a range hold a comment.
    static std::size_t commentLines(const TOMLDocument& document, ByteRange range);

    /// What the file holds of ours; null: there is no file. Asks the disk whether the server
    /// program is there.
    BlockFinding find(const TOMLDocument* document, const std::set<Created>& created) const;
    /// Why a verb may not touch the table: somebody else wrote it, or an installation would leave
    /// the file with an entry that Codex does not start with.
    std::optional<std::string> refusalReason(const TOMLDocument& document,
                                             const std::set<Created>& created, Verb verb) const;

    struct Installed : InstalledBlock {
        std::size_t commentsReplaced = 0;
    };
    /// Puts the table at the end of the file, or its entries in place of those of one that differs;
    /// in one that a person has added to, each of our keys by itself. `document` is the scan of
    /// `bytes`.
    Result<Installed> installed(std::string_view bytes, const TOMLDocument& document) const;
    /// The tables that a removal takes, in document order: ours and all under it, without which
    /// Codex would not start. Where ours is gone already, what is left of it.
    static std::vector<TOMLName> ownTables(const TOMLDocument& document,
                                           const std::set<Created>& created);
    /// What goes with those tables that we did not write, in sentences.
    std::vector<std::string> lostByRemoval(const TOMLDocument& document,
                                           const std::set<Created>& created) const;

private:
    Result<Installed> editedByKey(std::string_view bytes, const TOMLDocument& document) const;
    PersonsPart personsPart(Entries entries, Verb verb) const;

    CodexPaths m_paths;
};

} // namespace wendlow
