#include "LocalModelsDoor.h"

#include "ClientInstance.h"
#include "ClientStoreMode.h"

#include <QCoroTimer>
#include <QTimer>

#include <ctime>
#include <system_error>

#include <fmt/chrono.h>
#include <fmt/format.h>

namespace wendlow::LocalModelsDoor {

std::string cancelNotification() {
    return fmt::format("{}.cancel-local-models", ClientInstance::bundlePrefix);
}

void postCancel(DistributedNotificationCenter& notifications) {
    notifications.post({.name = cancelNotification()},
                       DistributedNotificationCenter::Delivery::immediately);
}

std::filesystem::path receiptPath(const std::filesystem::path& support) {
    return support / cancelReceiptFileName;
}

void writeReceipt(const std::filesystem::path& at) {
    const std::tm utc = fmt::gmtime(std::time(nullptr));
    [[maybe_unused]] const auto written =
        ClientStoreMode::write(fmt::format("cancelled at {:%FT%TZ}\n", utc), at);
}

QCoro::Task<bool> awaitReceipt(std::filesystem::path at, std::chrono::milliseconds timeout,
                               std::chrono::milliseconds every) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    QTimer pause;
    pause.setSingleShot(true);
    while (true) {
        std::error_code failed;
        if (std::filesystem::is_regular_file(at, failed))
            co_return true;
        if (std::chrono::steady_clock::now() >= deadline)
            co_return false;
        pause.start(every);
        co_await pause;
    }
}

} // namespace wendlow::LocalModelsDoor
