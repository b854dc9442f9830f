#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wendlow {

struct RPCMessage;

/// The server side of the Model Context Protocol over lines of JSON-RPC 2.0. It speaks the
/// revisions 2024-11-05, 2025-03-26 and 2025-06-18, batches included, and offers no tools yet: what
/// they would ask is the gateway's to answer. It keeps no state between lines, so that a client
/// which asks before it has initialized is answered all the same. One thread.
class MCPServer {
public:
    /// `version` is the product's, for the client to show.
    explicit MCPServer(std::string version);

    /// The answer to one line without its line end, itself on one line; nothing where none is due.
    std::optional<std::string> handle(std::string_view line) const;

    /// The answer to a line that was too long to keep.
    static std::string tooLong();

private:
    std::optional<std::string> answer(const RPCMessage& message) const;
    std::string initialized(const RPCMessage& message) const;

    std::string m_version;
};

} // namespace wendlow
