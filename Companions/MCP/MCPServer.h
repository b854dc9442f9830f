#pragma once

#include <functional>
#include <optional>
#include <string>

#include <QCoroTask>

#include "Client.h"

namespace wendlow {

struct RPCMessage;

/// The server side of the Model Context Protocol over lines of JSON-RPC 2.0. It speaks the
/// revisions 2024-11-05, 2025-03-26 and 2025-06-18, batches included, and offers the tools of the
/// catalogue, which the gateway answers. It keeps no state between lines, so that a client which
/// asks before it has initialized is answered all the same. One thread, with an event loop.
class MCPServer {
public:
    /// Made when the first tool is called: what only looks at the server needs no gateway.
    using Door = std::function<WendlowClient&()>;

    /// `version` is the product's, for the client to show.
    MCPServer(std::string version, Door door);

    /// The answer to one line without its line end, itself on one line; nothing where none is due.
    /// Any number of lines may be under way; what needs no gateway is answered at once. The server
    /// must outlive its answers.
    QCoro::Task<std::optional<std::string>> handle(std::string line) const;

    /// The answer to a line that was too long to keep.
    static std::string tooLong();

private:
    QCoro::Task<std::optional<std::string>> answer(RPCMessage message) const;
    QCoro::Task<std::optional<std::string>> called(RPCMessage message) const;
    std::string initialized(const RPCMessage& message) const;

    std::string m_version;
    Door m_door;
};

} // namespace wendlow
