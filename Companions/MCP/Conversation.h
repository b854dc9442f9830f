#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

#include <QCoroTask>
#include <QSocketNotifier>
#include <QTimer>

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
    /// So much is held of what is not answered yet. A tool that asks faster than it is answered
    /// waits then, and costs no more memory.
    static constexpr int mostLines = 4096;
    static constexpr std::size_t mostBytes = std::size_t{8} << 20U;
    /// But where nothing at all is answered, what stands behind may be what gives the calls up, and
    /// has to be read. Further calls are refused meanwhile.
    static constexpr std::chrono::seconds silence{5};

    bool isFull() const { return m_underWay >= mostLines || m_bytes >= mostBytes; }
    void read();
    void serve();
    QCoro::Task<> answer(std::string line);
    void hasEnded();

    MCPServer& m_server;
    LineReader m_reader;
    QSocketNotifier m_notifier;
    int m_underWay = 0;
    std::size_t m_bytes = 0; ///< of the lines under way
    QTimer m_silence;        ///< runs while lines are held
    bool m_isHeld = false;   ///< lines wait for answers to come
    bool m_refuses = false;  ///< it is full, and its lines are read nevertheless
    bool m_hasEnded = false;
};

} // namespace wendlow
