#include "Support/RunningGateway.h"

#include <QJsonDocument>

#include <utility>

#include <fmt/format.h>

namespace wendlow::testing {

void RunningGateway::start(const std::string& replies, const std::string& rules,
                           const std::string& days) {
    std::vector<std::string> options{"--replies", replies};
    if (!rules.empty())
        options.insert(options.end(), {"--rules", rules});
    if (!days.empty())
        options.insert(options.end(), {"--days", days});
    startWith(std::move(options));
}

void RunningGateway::startWith(std::vector<std::string> options) {
    kill();
    options.insert(options.end(), {"--store", store().string()});
    if (!fill.empty())
        options.insert(options.end(), {"--fill", fill});
    options.insert(options.end(), more.begin(), more.end());
    m_process.emplace(WENDLOW_PRACTICE_GATEWAY, options, m_desktop.home().path());
}

std::filesystem::path RunningGateway::store() const {
    return m_desktop.home() / "Library/Application Support/Wendlow/data.db";
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

QJsonObject RunningGateway::browse(const std::string& fields, const std::string& kind) const {
    return ask(fmt::format(R"({{"read":{{"_0":{{"textBrowse":{{"kind":"{}",{}}}}}}}}})", kind,
                           fields))
        .value(QStringLiteral("_0"))
        .toObject();
}

} // namespace wendlow::testing
