#pragma once

#include "BlockFinding.h"
#include "JSONBlock.h"
#include "OpenCode/OpenCodePaths.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace wendlow {

/// The `wendlow` entry under `mcp` in OpenCode's configuration, which may hold comments and commas
/// behind the last of a list. Pure on bytes; any thread.
class OpenCodeMCP {
public:
    using Readable = JSONBlock::Readable;
    template<class T> using Result = JSONBlock::Result<T>;

    /// Whose the entry is.
    struct Ours {
        bool operator==(const Ours&) const = default;
    };
    struct HandWritten {
        bool operator==(const HandWritten&) const = default;
    };
    /// It runs our program, and somebody added to it.
    struct Extras {
        enum class Kind { keys, type, enabled, arguments };

        Kind kind;                     ///< what of it this build would not write
        std::vector<std::string> keys; ///< of `Kind::keys`, sorted

        bool operator==(const Extras&) const = default;
    };
    using Ownership = std::variant<Ours, HandWritten, Extras>;

    explicit OpenCodeMCP(OpenCodePaths paths);

    JSONLiteral entry() const;
    /// The entry of this document, whatever it is.
    static std::optional<JSONNode> node(const JSONDocument& document);
    /// The first word of the entry's command.
    static std::optional<std::string_view> statedCommand(const JSONNode& entry);
    static bool isSwitchedOff(const JSONNode& entry);
    /// "the Wendlow MCP entry here is switched off, ...".
    static std::string switchedOffText();
    /// Whether the entry is there and empty: a place that a person kept for us.
    static bool isAdoptableShell(const JSONDocument& document);
    /// `created` is the receipt's: an entry that we created is ours, whatever it has come to hold.
    Ownership ownership(const JSONNode& entry, const std::set<Created>& created) const;

    /// The document, unless it does not scan or a name is repeated where an edit could go wrong.
    static Readable read(std::string_view bytes);
    /// What the file holds of ours, `document` being what `read` made of its bytes. Asks the disk
    /// whether the server program is there.
    BlockFinding find(std::string_view bytes, const Readable& document,
                      const std::set<Created>& created) const;
    /// Why no verb may touch the entry: somebody else had a hand in it.
    std::optional<std::string> refusalReason(const JSONDocument& document,
                                             const std::set<Created>& created) const;

    struct Installed : InstalledBlock {
        std::size_t commentsReplaced = 0; ///< lines of them in the values that were overwritten
    };
    /// Puts the entry in, or its members into one that differs. What a person said of `enabled`
    /// stands. `document` is the scan of `bytes`.
    Result<Installed> installed(std::string_view bytes, const JSONDocument& document) const;
    /// Takes the entry out, and the `mcp` object when that is then empty and `created` says that it
    /// is ours. Of an adopted shell only what we put into it goes.
    static Result<RemovedBlock> removed(std::string_view bytes, const JSONDocument& document,
                                        const ConnectorReceipt& receipt);

private:
    std::vector<std::string> driftReasons(const JSONNode& found, std::string_view bytes) const;

    OpenCodePaths m_paths;
    JSONLiteral::Object m_members; ///< of the entry as this build writes it
};

} // namespace wendlow
