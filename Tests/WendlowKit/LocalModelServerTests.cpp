#include "LocalModelServer.h"

#include <QCoroTask>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

/// A server on this machine that gives every caller the same bytes.
class Answering {
public:
    explicit Answering(QByteArray bytes) : m_bytes(std::move(bytes)) {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, [this] {
            QTcpSocket* const socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                m_asked = m_asked || socket->readAll().startsWith("GET /api/tags ");
                socket->write(m_bytes);
                socket->disconnectFromHost();
            });
        });
    }
    std::string endpoint() const {
        return "http://127.0.0.1:" + std::to_string(m_server.serverPort());
    }
    bool asked() const { return m_asked; }

private:
    QByteArray m_bytes;
    QTcpServer m_server;
    bool m_asked = false;
};

TEST(LocalModelServer, isReadyOnlyIfItSaysSo) {
    const QByteArray ok = "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n";
    const QByteArray tags = R"({"models":[{"name":"fenmoor/gemma3-4b-text:latest"}]})";
    const std::pair<QByteArray, bool> cases[] = {
        {ok + tags, true},
        {ok + R"({"models":[]})", false},
        {ok + tags.chopped(2), false},
        {"HTTP/1.1 500 No\r\nConnection: close\r\n\r\n" + tags, false},
        {"nonsense", false},
    };
    for (const auto& [bytes, ready] : cases) {
        const Answering server(bytes);
        EXPECT_EQ(QCoro::waitFor(LocalModelServer::ready(server.endpoint())), ready)
            << bytes.constData();
        EXPECT_TRUE(server.asked());
    }
    EXPECT_FALSE(QCoro::waitFor(LocalModelServer::ready("http://127.0.0.1:1")));
}

} // namespace
} // namespace wendlow
