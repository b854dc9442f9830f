#pragma once

#include "ConnectedAppsModel.h"
#include "JourneyContacts.h"
#include "Store/Waiting.h"

#include <QSemaphore>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace wendlow {

/// A Mac of the imagination that a journey can be led over, for pictures: every contact answers
/// from here, and what is silent stays so until this goes.
class PosedJourney final {
public:
    enum class Answer { given, silent, refused };
    enum class Tools { none, some };
    /// How far the download has come.
    enum class Download { unknown, unmeasured, halfway, done };

    JourneyScreen screen = JourneyScreen::welcome;
    GrantPair grants = {};
    bool grantsWhatIsAsked = false;
    bool warm = false;
    Answer phrase = Answer::given;
    Tools tools = Tools::some;
    Download download = Download::halfway;
    bool helloReceived = false;
    /// Of a cancel that is asked for; silent: it goes on.
    Answer cancel = Answer::silent;

    PosedJourney() = default;
    PosedJourney(const PosedJourney&) = delete;
    PosedJourney& operator=(const PosedJourney&) = delete;
    /// Who still waits is answered.
    ~PosedJourney();

    static std::chrono::system_clock::time_point now();
    /// What refers to this, which has to outlive it.
    JourneyContacts contacts();
    /// The tools of this Mac: some plugged in, one that refuses, and one that takes its time.
    ConnectedAppsModel& apps();

private:
    QCoro::Task<std::optional<GrantPair>> readGrants();
    QCoro::Task<std::optional<bool>> askHello();
    QCoro::Task<> grant(std::string kind);
    QCoro::Task<RecoveryRead> readPhrase();
    QCoro::Task<CancelEnd> endCancel();
    std::optional<LocalModelsProgress> progress() const;

    bool m_agreed = false;
    bool m_passed = false;
    Waiting<RecoveryRead> m_readers;
    Waiting<CancelEnd> m_cancellers;
    QSemaphore m_slowVerb;
    std::unique_ptr<ConnectedAppsModel> m_apps;
};

} // namespace wendlow
