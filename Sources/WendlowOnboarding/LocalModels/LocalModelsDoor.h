#pragma once

#include "DistributedNotification.h"

#include <QCoroTask>

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>

/// How a reader asks the writer of the progress file to stop and to undo, and how that answers: by
/// a file.
namespace wendlow::LocalModelsDoor {

/// The notification's name.
std::string cancelNotification();
void postCancel(DistributedNotificationCenter& notifications);

inline constexpr std::string_view cancelReceiptFileName = "local-models-cancelled";
/// In the product's own folder.
std::filesystem::path receiptPath(const std::filesystem::path& support);
/// A failure is ignored: who waits sees that nothing comes. Blocks.
void writeReceipt(const std::filesystem::path& at);

/// Whether the file is there within the timeout; looked for at least once. A thread with an event
/// loop.
QCoro::Task<bool> awaitReceipt(std::filesystem::path at, std::chrono::milliseconds timeout,
                               std::chrono::milliseconds every);

} // namespace wendlow::LocalModelsDoor
