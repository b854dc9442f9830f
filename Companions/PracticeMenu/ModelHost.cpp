#include "ModelHost.h"

#include <QHostAddress>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpSocket>

#include <algorithm>
#include <memory>

namespace wendlow {

namespace {

QByteArray response(const char* status, const QJsonObject& body) {
    const QByteArray text = QJsonDocument(body).toJson(QJsonDocument::Compact);
    return QByteArray("HTTP/1.1 ") + status +
           "\r\nContent-Type: application/json\r\nConnection: close\r\nContent-Length: " +
           QByteArray::number(text.size()) + "\r\n\r\n" + text;
}

/// How long the request is as a whole, once its head is there.
qsizetype lengthOf(const QByteArray& request) {
    constexpr qsizetype blankLine = 4;
    const qsizetype head = request.indexOf("\r\n\r\n");
    if (head < 0)
        return -1;
    qsizetype body = 0;
    for (const QByteArray& line : request.first(head).split('\n'))
        if (const QByteArray lower = line.trimmed().toLower(); lower.startsWith("content-length:"))
            body = lower.sliced(lower.indexOf(':') + 1).trimmed().toLongLong();
    return head + blankLine + body;
}

} // namespace

bool ModelHost::listen(quint16 port) {
    connect(&m_server, &QTcpServer::newConnection, this, &ModelHost::serve);
    return m_server.listen(QHostAddress::LocalHost, port);
}

void ModelHost::serve() {
    while (QTcpSocket* const socket = m_server.nextPendingConnection()) {
        const auto request = std::make_shared<QByteArray>();
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QTcpSocket::readyRead, this, [this, socket, request] {
            request->append(socket->readAll());
            const qsizetype length = lengthOf(*request);
            if (length < 0 || request->size() < length)
                return;
            socket->write(reply(*request));
            socket->disconnectFromHost();
        });
    }
}

QByteArray ModelHost::reply(const QByteArray& request) {
    if (request.startsWith("GET /api/tags ")) {
        QJsonArray models;
        for (const std::string& model : m_models)
            models.append(QJsonObject{{QStringLiteral("name"), QString::fromStdString(model)}});
        return response("200 OK", {{QStringLiteral("models"), models}});
    }
    if (!request.startsWith("DELETE /api/delete "))
        return response("404 Not Found", {});
    const QByteArray body = request.sliced(request.indexOf("\r\n\r\n"));
    const std::string name = QJsonDocument::fromJson(body.trimmed())
                                 .object()
                                 .value(QStringLiteral("name"))
                                 .toString()
                                 .toStdString();
    return response(std::erase(m_models, name) > 0 ? "200 OK" : "404 Not Found", {});
}

} // namespace wendlow

#include "moc_ModelHost.cpp"
