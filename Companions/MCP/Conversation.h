#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include <QCoroTask>
#include <QSocketNotifier>

#include "LineReader.h"

namespace wendlow {

class MCPServer;

/// Lines from standard input, answers to standard output, as long as the application's loop runs.
/// It ends the process when the tool closes either: what was asked before the input ended is still
/// answered, for as long as `patience`.
class Conversation {
public:
    /// A daemon that is silent may keep an answer for good, and whoever closed the input waits for
    /// this process to go: a script that moves a scope gives it 30 seconds, and would end with its
    /// work half done and nothing said.
    static constexpr std::chrono::seconds patience{25};

    /// `server` must outlive it.
    explicit Conversation(MCPServer& server);

    /// A line to standard output; it waits for a reader, and ends the process where there is none.
    static void write(std::string text);

private:
    /// So many lines are worked on at one time: a tool that asks faster than it is answered waits,
    /// and costs no memory.
    static constexpr int mostUnderWay = 64;

    void read();
    void serve();
    QCoro::Task<> answer(std::string line);
    void hasEnded();

    MCPServer& m_server;
    LineReader m_reader;
    QSocketNotifier m_notifier;
    int m_underWay = 0;
    bool m_isHeld = false; ///< lines wait for answers to come
    bool m_hasEnded = false;
};

} // namespace wendlow
