// The MCP server that AI tools start: one JSON-RPC message a line on standard input, the answers on
// standard output. It ends, and ends well, when the tool closes either.

#include "ClientVersion.h"
#include "Conversation.h"
#include "MCPGatewayName.h"
#include "MCPServer.h"
#include "RuntimeFolder.h"
#include "XPCClient.h"

#include <csignal>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include <QCoreApplication>
#include <fcntl.h>
#include <unistd.h>

namespace {

using namespace wendlow;

std::string gatewayName() {
    std::map<std::string, std::string, std::less<>> environment;
    const std::string key(MCPGatewayName::overrideKey);
    if (const char* const value = std::getenv(key.c_str()))
        environment.emplace(key, value);
    return MCPGatewayName::resolve(environment);
}

} // namespace

int main(int count, char** words) {
    // The number of a closed one would be given to what is opened next, such as the bus.
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO})
        if (::fcntl(standard, F_GETFD) < 0)
            return EXIT_SUCCESS;
    if (::fcntl(STDERR_FILENO, F_GETFD) < 0 && ::open("/dev/null", O_WRONLY) != STDERR_FILENO)
        return EXIT_SUCCESS;
    std::signal(SIGPIPE, SIG_IGN);
    findRuntimeFolder();
    const QCoreApplication application(count, words);
    std::optional<XPCClient> client;
    const auto door = [&]() -> WendlowClient& {
        if (!client) {
            XPCClient::Options options;
            options.machServiceName = gatewayName();
            client.emplace(std::move(options));
        }
        return *client;
    };
    MCPServer server(ClientVersion::current(), door, &Conversation::write);
    const Conversation conversation(server);
    return QCoreApplication::exec();
}
