#pragma once

#include <QByteArray>
#include <QTcpServer>

#include <string>
#include <vector>

namespace wendlow {

/// What the local model host answers on the loopback address: which models it has, and the request
/// to delete one. It has names, and no models.
class ModelHost final : public QObject {
    Q_OBJECT

public:
    explicit ModelHost(std::vector<std::string> models) : m_models(std::move(models)) {}

    /// Whether the port was free.
    bool listen(quint16 port);
    void add(const std::string& model) { m_models.push_back(model); }

private:
    void serve();
    /// The whole reply to a whole request.
    QByteArray reply(const QByteArray& request);

    QTcpServer m_server;
    std::vector<std::string> m_models;
};

} // namespace wendlow
