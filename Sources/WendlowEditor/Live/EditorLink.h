#pragma once

#include "Client.h"
#include "Store/Lifetime.h"
#include "Store/Waiting.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace wendlow {

/// When one request was where.
struct LinkLeg {
    using Instant = std::chrono::steady_clock::time_point;

    Instant arrived;
    Instant sent;
    Instant replied;
    std::optional<std::chrono::nanoseconds> daemon = std::nullopt; ///< as the daemon says

    bool operator==(const LinkLeg&) const = default;
};

/// The one narrow way from the Editor to the daemon: one request at a time, a person's before bulk
/// work, within a lane first come, first served. A slow leg is reported. Nothing here times out or
/// is cancelled; the client's own limits hold. UI thread.
class EditorLink {
public:
    enum class Lane { now, later };
    using Clock = std::function<LinkLeg::Instant()>;
    /// Hands a line to the daemon's log; whether it arrives is nobody's concern.
    using Note = std::function<void(std::string line)>;
    struct Reply {
        GatewayResponse response;
        LinkLeg leg;
    };

    explicit EditorLink(
        std::shared_ptr<WendlowClient> client, Note note = {},
        Clock clock = [] { return std::chrono::steady_clock::now(); });
    EditorLink(const EditorLink&) = delete;
    EditorLink& operator=(const EditorLink&) = delete;
    /// Whoever still waits for the link gets a failure.
    ~EditorLink();

    /// Sends a request and reports its leg. Build the request on a line of its own: GCC 12 destroys
    /// an aggregate twice that is built inside of the awaited call. The link may go while a caller
    /// waits; the caller then must not touch what went with it.
    QCoro::Task<Reply> send(GatewayRequest request, Lane lane);
    /// The same for a caller who reports the leg, since what it makes of the answer takes time too.
    QCoro::Task<Reply> serializedLeg(GatewayRequest request, Lane lane);
    /// A leg in good time is silent. `rendered` is when the answer had been made into records.
    void report(const LinkLeg& leg, const std::string& verb,
                std::optional<LinkLeg::Instant> rendered = std::nullopt) const;
    LinkLeg::Instant now() const { return m_clock(); }
    /// What was asked and is not answered yet comes to nothing: who asked gets a failure, and the
    /// next one's turn comes. What changes something is waited for, for it may have done so.
    void abandon();

private:
    enum class Turn { begins, neverComes };
    struct Call;

    static QCoro::Task<> exchange(std::shared_ptr<WendlowClient> client, GatewayRequest request,
                                  std::shared_ptr<Call> call);

    void passOn();

    std::shared_ptr<WendlowClient> m_client;
    Note m_note;
    Clock m_clock;
    bool m_busy = false;
    std::shared_ptr<Call> m_call; ///< under way, if it may be abandoned
    Waiting<Turn> m_now;
    Waiting<Turn> m_later;
    Lifetime m_life;
};

} // namespace wendlow
