// The MCP server that AI tools start: one JSON-RPC message a line on standard input, the answers on
// standard output. It ends, and ends well, when the tool closes either.

#include "ClientVersion.h"
#include "LineReader.h"
#include "MCPServer.h"

#include <cerrno>
#include <csignal>
#include <optional>
#include <string>
#include <string_view>

#include <unistd.h>

namespace {

/// False when nobody reads any more.
bool writeAll(std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(STDOUT_FILENO, text.data(), text.size());
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace

int main() {
    using wendlow::LineReader;
    std::signal(SIGPIPE, SIG_IGN);
    const wendlow::MCPServer server(wendlow::ClientVersion::current());
    LineReader reader(STDIN_FILENO);
    while (true) {
        const LineReader::Outcome outcome = reader.next();
        if (outcome == LineReader::Outcome::end)
            return 0;
        const std::optional<std::string> answer = outcome == LineReader::Outcome::tooLong
                                                      ? wendlow::MCPServer::tooLong()
                                                      : server.handle(reader.line());
        if (answer && !writeAll(*answer + '\n'))
            return 0;
    }
}
