#pragma once

#include "JourneyContacts.h"
#include "LocalModelsProgress.h"
#include "LocalModelsUndo.h"

#include <QCoroTask>

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

/// The end of a journey that is called off: what the tools' own connectors do not undo.
namespace wendlow::InstallCancel {

struct Limits {
    std::chrono::milliseconds answer = std::chrono::seconds(10); ///< of the menu-bar application
    std::chrono::milliseconds every = std::chrono::milliseconds(250);
};

struct Surroundings {
    DistributedNotificationCenter& notifications;
    std::filesystem::path support; ///< the product's own folder
    LocalModelsUndo::Surroundings undo;
    Limits limits;
    std::function<void(const std::string& line)> log;
};

/// Asks the menu-bar application to stop and to undo, undoes here too, since it may be gone, and
/// takes the journey's own receipts away. `last` is what was last read of the download.
QCoro::Task<CancelEnd> run(std::optional<LocalModelsProgress> last, Surroundings surroundings);

} // namespace wendlow::InstallCancel
