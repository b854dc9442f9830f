#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <QCoroTask>

#include "GatewayCall.h"
#include "Library.h"

namespace wendlow {

struct RPCMessage;

/// The server side of the Model Context Protocol over lines of JSON-RPC 2.0. It speaks the
/// revisions from 2024-11-05 to 2025-11-25, batches included, and offers the tools of the
/// catalogue and the library beside them, which the gateway answers. It keeps of the conversation
/// who the client is and which revision was agreed on; a client that asks before it has initialized
/// is answered all the same. One thread, with an event loop.
class MCPServer {
public:
    using Door = GatewayCall::Door;
    /// Takes a notification, on one line without its end.
    using Say = std::function<void(std::string)>;

    /// `version` is the product's, for the client to show.
    MCPServer(std::string version, Door door, Say say = [](const std::string&) {});

    /// Whether there is room for one more request that has to wait for the gateway.
    enum class Room { some, none };

    /// The answer to one line without its line end, itself on one line; nothing where none is due.
    /// Any number of lines may be under way, of which the first ask the gateway and the others wait
    /// for their turn; what needs no gateway is answered at once. The server must outlive its
    /// answers.
    QCoro::Task<std::optional<std::string>> handle(std::string line, Room room = Room::some);

    /// The answer to a line that was too long to keep.
    static std::string tooLong();

private:
    using Answer = std::optional<std::string>;

    QCoro::Task<Answer> answer(RPCMessage message, Room room);
    QCoro::Task<Answer> asked(RPCMessage message, std::shared_ptr<GatewayCall> call) const;
    QCoro::Task<Answer> called(RPCMessage message, std::shared_ptr<GatewayCall> call) const;
    std::optional<std::string> answeredAtOnce(const RPCMessage& message);
    std::string initialized(const RPCMessage& message);
    void giveUp(const RPCMessage& notification);
    bool speaks(std::string_view revision) const { return m_revision >= revision; }

    std::string m_version;
    Door m_door;
    GatewayTurns m_turns{64};
    Say m_say;
    std::string m_writer = "mcp";
    std::string m_revision; ///< empty until one is agreed on
    std::map<std::string, std::shared_ptr<GatewayCall>> m_underWay; ///< by id, as JSON
};

} // namespace wendlow
