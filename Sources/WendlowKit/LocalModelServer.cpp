#include "LocalModelServer.h"

#include <chrono>
#include <memory>

#include <QCoroNetworkReply>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

namespace wendlow {

QCoro::Task<bool> LocalModelServer::ready(std::string endpoint) {
    using namespace std::chrono_literals;
    endpoint.append(LocalModel::tagsPath);
    QNetworkAccessManager network;
    QNetworkRequest request(QUrl(QString::fromStdString(endpoint)));
    request.setTransferTimeout(static_cast<int>(std::chrono::milliseconds(2s).count()));
    const std::unique_ptr<QNetworkReply> reply(network.get(request));
    co_await reply.get();
    co_return reply->error() ==
        QNetworkReply::NoError&& LocalModel::readyInTags(reply->readAll().toStdString());
}

} // namespace wendlow
