#include "Support/RunningGateway.h"

#include <QJsonDocument>

#include <fmt/format.h>

namespace wendlow::testing {

void RunningGateway::start(const std::string& replies, const std::string& rules) {
    std::vector<std::string> more{"--replies", replies};
    if (!rules.empty())
        more.insert(more.end(), {"--rules", rules});
    startWith(more);
}

void RunningGateway::startWith(const std::vector<std::string>& more) {
    kill();
    const auto database = m_desktop.home() / "Practice" / "practice.db";
    std::vector<std::string> arguments{"--database", database.string(), "--fill", "day"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    m_process.emplace(WENDLOW_PRACTICE_GATEWAY, arguments);
}

QJsonObject RunningGateway::ask(const std::string& request) const {
    const QString answer =
        m_desktop.run(QStringLiteral(WENDLOW_ASK), {QString::fromStdString(request)});
    const QJsonObject response = QJsonDocument::fromJson(answer.toUtf8())
                                     .object()
                                     .value(QStringLiteral("response"))
                                     .toObject();
    return response.isEmpty() ? response : response.begin()->toObject();
}

QJsonObject RunningGateway::browse(const std::string& fields) const {
    return ask(fmt::format(R"({{"read":{{"_0":{{"textBrowse":{{"kind":"memory",{}}}}}}}}})",
                           fields))
        .value(QStringLiteral("_0"))
        .toObject();
}

} // namespace wendlow::testing
