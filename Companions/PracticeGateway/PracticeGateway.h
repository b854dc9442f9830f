#pragma once

#include <expected>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QThreadPool>

#include "Client.h"
#include "Clock.h"
#include "DayManner.h"
#include "Fill/FillSize.h"
#include "GatewayEvent.h"
#include "GrantRoom.h"
#include "MeetingRoom.h"
#include "ModRoom.h"
#include "PhraseRoom.h"
#include "RuleChain.h"

namespace wendlow {

class PracticeRooms;

/// A gateway over a database of its own: what the daemon would answer, without the daemon. It
/// serves a bus face and an `InProcessClient` alike. Requests are worked off in order on a thread
/// of its own.
class PracticeGateway final : public Gateway {
public:
    /// What it calls for.
    struct Hooks {
        /// On the gateway's own thread.
        std::function<void(GatewayEvent)> push = [](const GatewayEvent&) {};
        /// On the thread that asked for it, right before the answer.
        std::function<void()> shutDown = [] {};
        /// A phrase has brought the key back: the same, so that the store is opened with it.
        std::function<void()> restart = [] {};
        Clock now = &std::chrono::system_clock::now;
    };

    /// Opens the database, or makes it. The error is a sentence.
    static std::expected<std::shared_ptr<PracticeGateway>, std::string>
    open(const std::filesystem::path& database, Hooks hooks);

    PracticeGateway(std::unique_ptr<PracticeRooms> rooms, Hooks hooks);
    /// Waits for the requests that were taken.
    ~PracticeGateway() override;

    /// Fills an empty database; in any other the days that were filled go on to now. Before the
    /// first request. The error is a sentence.
    std::expected<void, std::string> fill(FillSize size);
    /// The day goes on by the time that has passed since the last call, and one more moment comes.
    /// Whatever is asked behind it knows of it.
    void passTime();
    /// How it answers about rules. Before the first request.
    void answerRules(RuleManner manner);
    /// How its store is protected. Before the first request.
    void protect(StoreProtection protection);
    /// Where the diagnostic log is while it is kept. Before the first request.
    void keepTraceLogAt(const std::filesystem::path& file);
    /// How it answers about days. Before the first request.
    void answerDays(DayManner manner);
    /// What happens to lines of meetings that are to be deleted. Before the first request.
    void meddleWithLines(std::vector<LineManner> manners);
    /// How it answers about mods. Before the first request.
    void answerMods(ModManner manner);
    /// What becomes of permissions. Before the first request.
    void answerGrants(GrantManner manner);

    /// The calling thread needs an event loop; it gets the answer.
    QCoro::Task<GatewayResponse> handle(GatewayRequest request) override;

    /// Pushes an event when the front window has come to be recorded otherwise since the last
    /// time. Done after every command; to be called now and then, since a pause ends by itself.
    void lookAtFront();

private:
    GatewayResponse answer(const GatewayRequest& request);
    void pushFront();

    const Hooks m_hooks;
    // These are of the lane's thread.
    const std::unique_ptr<PracticeRooms> m_rooms;
    std::optional<FrontRecording> m_front;
    DayManner m_days;
    QThreadPool m_lane; ///< last, so that it ends first
};

} // namespace wendlow
