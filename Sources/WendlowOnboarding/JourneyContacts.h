#pragma once

#include "Client.h"
#include "Journey.h"
#include "LocalModelsProgress.h"
#include "ToolsBefore.h"

#include <QCoroTask>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace wendlow {

class ConnectedAppsModel;
class DistributedNotificationCenter;

/// The twelve words, or a sentence why there are none.
using RecoveryWordsRead = std::vector<std::string>;
struct RecoveryFailed {
    std::string sentence;
    bool operator==(const RecoveryFailed&) const = default;
};
using RecoveryRead = std::variant<RecoveryWordsRead, RecoveryFailed>;

enum class CancelEnd { stopped, writerStillRuns };

/// All that the journey asks of the world around it. Each is there; each is called on the UI
/// thread. What takes a while is a task; what is asked of the daemon may never be answered, which
/// the journey bounds.
struct JourneyContacts {
    std::function<ConnectedAppsModel&()> connect;
    std::function<QCoro::Task<std::optional<GrantPair>>()> grants;
    std::function<QCoro::Task<bool>()> storePresent;
    std::function<QCoro::Task<RecoveryRead>()> phrase;
    std::function<bool()> recoveryPassed;
    std::function<void()> markRecoveryPassed;
    std::function<bool()> termsAgreed;
    std::function<void()> markTermsAgreed;
    std::function<void(bool)> setAutoInstall;
    std::function<QCoro::Task<>(std::string kind)> requestGrant;
    std::function<std::optional<JourneyScreen>()> forcedScreen;
    std::function<std::optional<LocalModelsProgress>()> localModels;
    /// Nothing: it is not known.
    std::function<QCoro::Task<std::optional<bool>>()> hello;
    std::function<bool()> warm;
    /// What an undo would take away, line by line.
    std::function<std::vector<std::string>(const LocalModelsProgress::Receipts&)> describeUndo;
    /// Has the writer stop and undo, then undoes here, and forgets the journey's own receipts.
    std::function<QCoro::Task<CancelEnd>(std::optional<LocalModelsProgress>)> cancelInstall;
    std::function<void()> wakeWriter;
    std::function<std::chrono::system_clock::time_point()> now;
    std::function<std::vector<std::string>()> loadWired;
    std::function<void(const std::vector<std::string>&)> saveWired;
    /// Unlike all others called off the UI thread.
    ToolsBefore tools;
    std::function<QCoro::Task<std::optional<std::int64_t>>()> measureAppSize;
    /// The size of the disk that the models go to.
    std::function<std::optional<std::int64_t>()> diskBytes;
    std::function<void()> openTerms;
    std::function<void()> terminate;
    std::function<void(const std::string& line)> log;

    /// What the real ones stand on.
    struct Surroundings {
        std::shared_ptr<WendlowClient> client;
        DistributedNotificationCenter& notifications;
        std::function<ConnectedAppsModel&()> connect;
        std::optional<JourneyScreen> forcedScreen;
        std::function<void()> terminate;
        std::function<void(const std::string& line)> log;
    };
    /// The contacts of the running application.
    static JourneyContacts real(Surroundings surroundings);
};

} // namespace wendlow
