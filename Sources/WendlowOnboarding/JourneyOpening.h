#pragma once

#include "Client.h"

#include <QCoroTask>

#include <chrono>
#include <memory>

namespace wendlow {

/// Whether the application, started without a window being asked for, is to open the journey. The
/// daemon is given `limit` for each answer; without one there is no journey but for a person who
/// has not begun. UI thread.
QCoro::Task<bool> shouldOpenJourney(std::shared_ptr<WendlowClient> client,
                                    std::chrono::milliseconds limit);

} // namespace wendlow
