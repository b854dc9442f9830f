#include "Conversation.h"

#include <cerrno>
#include <cstdlib>
#include <utility>

#include <QCoreApplication>
#include <poll.h>
#include <unistd.h>

#include "MCPServer.h"

namespace wendlow {

namespace {

/// What is still under way would keep the threads of the client, and nobody hears of it any more.
[[noreturn]] void leave() {
    std::_Exit(EXIT_SUCCESS);
}

} // namespace

Conversation::Conversation(MCPServer& server)
    : m_server(server), m_reader(STDIN_FILENO), m_notifier(STDIN_FILENO, QSocketNotifier::Read) {
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { read(); });
    m_silence.setSingleShot(true);
    m_silence.setInterval(silence);
    QObject::connect(&m_silence, &QTimer::timeout, &m_silence, [this] {
        m_refuses = true;
        serve();
    });
}

void Conversation::read() {
    m_reader.fill();
    serve();
}

void Conversation::serve() {
    m_isHeld = false;
    m_refuses = m_refuses && isFull();
    while (m_refuses || !isFull()) {
        switch (m_reader.next()) {
        case LineReader::Outcome::line:
            answer(m_reader.take()); // ends by itself
            break;
        case LineReader::Outcome::tooLong:
            write(MCPServer::tooLong());
            break;
        case LineReader::Outcome::more:
            m_notifier.setEnabled(true);
            return;
        case LineReader::Outcome::end:
            m_notifier.setEnabled(false);
            hasEnded();
            return;
        }
    }
    m_isHeld = true;
    m_silence.start();
    m_notifier.setEnabled(false);
}

QCoro::Task<> Conversation::answer(std::string line) {
    const std::size_t bytes = line.size();
    const auto room = isFull() ? MCPServer::Room::none : MCPServer::Room::some;
    ++m_underWay;
    m_bytes += bytes;
    auto answer = co_await m_server.handle(std::move(line), room);
    --m_underWay;
    m_bytes -= bytes;
    if (answer)
        write(std::move(*answer));
    if (m_isHeld) {
        m_isHeld = false;
        m_silence.stop();
        QTimer::singleShot(0, &m_notifier, [this] { serve(); });
    }
    if (m_hasEnded && m_underWay == 0)
        QCoreApplication::quit();
}

void Conversation::write(std::string text) {
    text += '\n';
    std::string_view rest = text;
    while (!rest.empty()) {
        const ssize_t written = ::write(STDOUT_FILENO, rest.data(), rest.size());
        if (written >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno == EAGAIN) {
            pollfd reader{.fd = STDOUT_FILENO, .events = POLLOUT, .revents = 0};
            ::poll(&reader, 1, -1);
        } else if (errno != EINTR) {
            leave(); // nobody reads any more
        }
    }
}

void Conversation::hasEnded() {
    m_hasEnded = true;
    if (m_underWay == 0)
        QCoreApplication::quit();
    else
        QTimer::singleShot(patience, &leave);
}

} // namespace wendlow
