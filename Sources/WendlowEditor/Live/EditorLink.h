#pragma once

#include "Client.h"
#include "Live/Lifetime.h"
#include "Live/Waiting.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

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
/// work, within a lane first come, first served. Nothing here times out or is cancelled; the
/// client's own limits hold. UI thread.
class EditorLink {
public:
    enum class Lane { now, later };
    using Clock = std::function<LinkLeg::Instant()>;
    struct Reply {
        GatewayResponse response;
        LinkLeg leg;
    };

    explicit EditorLink(
        std::shared_ptr<WendlowClient> client,
        Clock clock = [] { return std::chrono::steady_clock::now(); });
    EditorLink(const EditorLink&) = delete;
    EditorLink& operator=(const EditorLink&) = delete;
    /// Whoever still waits for the link gets a failure.
    ~EditorLink();

    /// Build the request on a line of its own: GCC 12 destroys an aggregate twice that is built
    /// inside of the awaited call. The link may go while a caller waits; the caller then must not
    /// touch what went with it.
    QCoro::Task<Reply> serializedLeg(GatewayRequest request, Lane lane);
    LinkLeg::Instant now() const { return m_clock(); }

private:
    enum class Turn { begins, neverComes };

    void passOn();

    std::shared_ptr<WendlowClient> m_client;
    Clock m_clock;
    bool m_busy = false;
    Waiting<Turn> m_now;
    Waiting<Turn> m_later;
    Lifetime m_life;
};

} // namespace wendlow
