#include "BusPulse.h"

#include "SessionBusAddress.h"

#include <QByteArray>
#include <QDeadlineTimer>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <optional>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace wendlow {

namespace {

/// The local socket that the first of the addresses names, as the kernel has it: that of an
/// abstract one begins with a zero.
std::optional<QByteArray> socketName(const QString& busAddress) {
    const QByteArray first = busAddress.section(u';', 0, 0).toUtf8();
    const QByteArray transport = "unix:";
    if (!first.startsWith(transport))
        return std::nullopt;
    for (const QByteArray& pair : first.mid(transport.size()).split(',')) {
        QByteArray value = QByteArray::fromPercentEncoding(pair.mid(pair.indexOf('=') + 1));
        if (pair.startsWith("path="))
            return value;
        if (pair.startsWith("abstract="))
            return '\0' + value;
    }
    return std::nullopt;
}

bool isReady(int socket, short event, const QDeadlineTimer& limit) {
    pollfd wait{.fd = socket, .events = event, .revents = 0};
    return ::poll(&wait, 1, static_cast<int>(std::max<qint64>(0, limit.remainingTime()))) > 0;
}

BusPulse converse(int socket, const QByteArray& name, const QDeadlineTimer& limit) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (static_cast<std::size_t>(name.size()) >= sizeof address.sun_path)
        return BusPulse::answers;
    std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size() +
                                               (name.startsWith('\0') ? 0 : 1));
    if (::connect(socket, reinterpret_cast<const sockaddr*>(&address), length) != 0)
        return errno == EAGAIN ? BusPulse::silent : BusPulse::absent;
    const QByteArray hello =
        QByteArray(1, '\0') + "AUTH EXTERNAL " + QByteArray::number(::getuid()).toHex() + "\r\n";
    if (::send(socket, hello.constData(), static_cast<std::size_t>(hello.size()), MSG_NOSIGNAL) !=
        hello.size())
        return BusPulse::absent;
    char answer = 0;
    if (!isReady(socket, POLLIN, limit))
        return BusPulse::silent;
    return ::recv(socket, &answer, 1, 0) == 1 ? BusPulse::answers : BusPulse::absent;
}

} // namespace

BusPulse feelPulse(const QString& busAddress, std::chrono::milliseconds limit) {
    if (busAddress.isEmpty())
        return BusPulse::absent;
    const auto name = socketName(busAddress);
    if (!name)
        return BusPulse::answers;
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket < 0)
        return BusPulse::absent;
    const BusPulse pulse = converse(socket, *name, QDeadlineTimer(limit));
    ::close(socket);
    return pulse;
}

BusPulse sessionBusPulse(std::chrono::milliseconds limit) {
    return feelPulse(sessionBusAddress(), limit);
}

} // namespace wendlow
