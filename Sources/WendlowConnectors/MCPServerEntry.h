#pragma once

#include "BlockFinding.h"
#include "ConnectorReceipt.h"
#include "JSONBlock.h"
#include "PersonsPart.h"

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace wendlow {

/// The `wendlow` entry under `mcpServers` in a tool's file. Pure on bytes; any thread.
class MCPServerEntry {
public:
    using Readable = JSONBlock::Readable;
    template<class T> using Result = JSONBlock::Result<T>;

    /// The entry runs `binary`; `serversObject` is the receipt's case for an `mcpServers` object
    /// that the entry brought into being.
    MCPServerEntry(std::filesystem::path binary, Created serversObject);

    const JSONLiteral& entry() const { return m_entry; }

    /// The document, unless it does not scan or a name is repeated where an edit could go wrong.
    Readable read(std::string_view bytes) const;
    /// What the file holds of ours, `document` being what `read` made of its bytes. Asks the disk
    /// whether the server program is there.
    BlockFinding find(std::string_view bytes, const Readable& document) const;
    /// The entry of this document, whoever's it is.
    static std::optional<JSONNode> node(const JSONDocument& document);
    /// What of an entry we did not write.
    PersonsPart personsPart(const JSONNode& entry, std::string_view bytes) const;

    /// Puts the entry in, or in place of one that differs. The second form takes the scan of
    /// `bytes` that was made before.
    Result<InstalledBlock> installed(std::string_view bytes) const;
    Result<InstalledBlock> installed(std::string_view bytes, const JSONDocument& document) const;
    /// Takes the entry out, and the `mcpServers` object when that is then empty and `created` says
    /// that it is ours.
    Result<RemovedBlock> removed(std::string_view bytes, const std::set<Created>& created) const;
    Result<RemovedBlock> removed(std::string_view bytes, const JSONDocument& document,
                                 const std::set<Created>& created) const;

private:
    std::filesystem::path m_binary;
    Created m_serversObject;
    JSONLiteral m_entry;
};

} // namespace wendlow
