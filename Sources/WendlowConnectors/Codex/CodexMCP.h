#pragma once

#include "BlockEdit.h"
#include "BlockFinding.h"
#include "Codex/CodexPaths.h"
#include "ConfigFile/TOMLEdit.h"

#include <cstddef>
#include <expected>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// The table `[mcp_servers.wendlow]` in Codex's configuration. Pure on bytes; any thread.
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
    /// Whether these are exactly the entries that this build writes, in any order.
    bool matchesOurShape(Entries entries) const;
    /// The tables whose names extend that of ours.
    static std::vector<const TOMLTable*> subTables(const TOMLDocument& document);
    /// How many lines in the table's body hold a comment.
    static std::size_t interiorComments(const TOMLDocument& document, const TOMLTable& table);

    /// What the file holds of ours; null: there is no file. Asks the disk whether the server
    /// program is there.
    BlockFinding find(const TOMLDocument* document, const std::set<Created>& created) const;
    /// Why a verb may not touch the table: somebody else wrote it, or the file would be left with
    /// an entry that Codex does not start with.
    std::optional<std::string> refusalReason(const TOMLDocument& document,
                                             const std::set<Created>& created, Verb verb) const;

    struct Installed : InstalledBlock {
        std::size_t commentsReplaced = 0;
    };
    /// Puts the table at the end of the file, or its entries in place of those of one that differs.
    /// `document` is the scan of `bytes`.
    Result<Installed> installed(std::string_view bytes, const TOMLDocument& document) const;
    /// Takes the table out, if it is there.
    static Result<RemovedBlock> removed(std::string_view bytes, const TOMLDocument& document);

private:
    CodexPaths m_paths;
};

} // namespace wendlow
