#include "XPCClient.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <utility>

#include "CXPCShim.h"
#include "DoorHistory.h"
#include "Say.h"
#include "SubscriptionGate.h"
#include "WireCodec.h"
#include "WireContract.h"
#include "XPC/DispatchQueue.h"
#include "XPC/Handover.h"
#include "XPCWire.h"

namespace wendlow {

namespace {

using XPCRoundTrip::Attempt;

bool isSkewed(std::optional<std::int64_t> wire) {
    return wire && *wire != static_cast<std::int64_t>(WireContract::version);
}

WendlowClient::Timed failure(std::string message) {
    return {.response = AnswerCase::Failure{std::move(message)}};
}

/// A connection, and how much was heard over it.
struct Line {
    explicit Line(xpc_connection_t made) : connection(std::move(made)) {}

    /// Takes note of what came of a message.
    void hear(const Attempt& attempt) {
        if (!std::holds_alternative<XPCRoundTrip::Silence>(attempt))
            ++replies;
    }

    /// Everything that is still under way on it fails.
    void cancel() {
        if (!isCancelled.exchange(true))
            xpc_connection_cancel(connection);
    }

    const xpc_connection_t connection;
    std::atomic<std::uint64_t> replies = 0;
    std::atomic<bool> isCancelled = false;
};

} // namespace

/// The client's state. Calls in flight share it with the client, and so may outlive the client. The
/// lock guards short reads and swaps: it is never held over a send, a wait or a closure.
class XPCClient::Door : public std::enable_shared_from_this<Door> {
public:
    explicit Door(Options options) : m_options(std::move(options)) {
        if (!m_options.dial)
            m_options.dial = [queue = std::weak_ptr(m_queue)](const std::string& name) {
                return xpc_connection_create_mach_service(name, queue.lock());
            };
        if (!m_options.serviceRegistered)
            m_options.serviceRegistered = [](const std::string& name) {
                return wendlow_mach_service_registered(name.c_str());
            };
        if (!m_options.clientLineage)
            m_options.clientLineage = [] {
                return ClientLineage::probe(ClientLineage::executablePath());
            };
        if (!m_options.after)
            m_options.after = [queue = std::weak_ptr(m_queue)](std::chrono::milliseconds delay,
                                                               std::function<void()> work) {
                if (const auto living = queue.lock())
                    living->after(delay, std::move(work));
            };
        m_line = dial();
    }

    static QCoro::Task<Timed> exchange(std::shared_ptr<Door> door, GatewayRequest request);

    void subscribe(EventHandler onEvent);
    void ensureSubscribed();
    std::optional<DoorFault> fault() const {
        const std::lock_guard guard(m_lock);
        return m_fault;
    }
    int knocks() const {
        const std::lock_guard guard(m_lock);
        return m_knocks;
    }

private:
    using Shared = std::shared_ptr<Door>;

    using SharedLine = std::shared_ptr<Line>;

    /// What becomes of the messages that are still under way on a line that is not used any more.
    enum class OthersOnIt {
        stay, ///< their replies may still come: what failed was one message
        fail, ///< nothing comes there any more
    };

    static QCoro::Task<> knock(Shared door, SharedLine line);
    static QCoro::Task<Timed> doubleFailure(Shared door, Attempt attempt);

    SharedLine dial() const;
    SharedLine line() const {
        const std::lock_guard guard(m_lock);
        return m_line;
    }
    SharedLine redialled(const SharedLine& failed, OthersOnIt others);
    XPCRoundTrip::Deadline budget() const { return {m_options.redial.budget, m_options.after}; }
    Timed finish(XPCRoundTrip::Answered answer);
    void announceSkew();
    void setFault(std::optional<DoorFault> fault) {
        const std::lock_guard guard(m_lock);
        m_fault = fault;
    }
    void openSubscription();
    void eventArrived(const xpc_object_t& event, const xpc_connection_t& connection);

    const std::shared_ptr<DispatchQueue> m_queue = std::make_shared<DispatchQueue>();
    Options m_options;
    DoorHistory m_history;

    std::mutex m_redialLock; ///< held over a dial, and taken by nothing else
    mutable std::mutex m_lock;
    SharedLine m_line;
    xpc_connection_t m_subConnection;
    EventHandler m_onEvent;
    std::optional<DoorFault> m_fault;
    OneShot m_skewAnnounced;
    int m_knocks = 0;
};

XPCClient::Door::SharedLine XPCClient::Door::dial() const {
    const xpc_connection_t connection = m_options.dial(m_options.machServiceName);
    xpc_connection_resume(connection);
    return std::make_shared<Line>(connection);
}

/// A burst of failures dials once: whoever finds another connection in place uses that.
XPCClient::Door::SharedLine XPCClient::Door::redialled(const SharedLine& failed,
                                                       OthersOnIt others) {
    const std::lock_guard one(m_redialLock);
    // Cancelled, every message on it would be sent again, and a write be done twice.
    if (others == OthersOnIt::fail)
        failed->cancel();
    if (SharedLine current = line(); current != failed)
        return current;
    SharedLine fresh = dial();
    const std::lock_guard guard(m_lock);
    m_line = fresh;
    return fresh;
}

QCoro::Task<WendlowClient::Timed> XPCClient::Door::exchange(Shared door, GatewayRequest request) {
    const std::expected<std::string, EncodeError> payload = WireCodec::encode(request);
    if (!payload) {
        door->setFault(std::nullopt);
        co_return failure(say("encode failed"));
    }
    SharedLine line = door->line();
    Attempt attempt = co_await XPCRoundTrip::make(XPCRoundTrip::message(*payload), line->connection,
                                                  std::nullopt);
    line->hear(attempt);
    if (const auto* const failed = std::get_if<XPCRoundTrip::TransportError>(&attempt)) {
        line = door->redialled(line, failed->isConnections ? OthersOnIt::fail : OthersOnIt::stay);
        if (door->m_history.connected())
            co_await knock(door, line);
        const std::uint64_t before = line->replies;
        attempt = co_await XPCRoundTrip::make(XPCRoundTrip::message(*payload), line->connection,
                                              door->budget());
        line->hear(attempt);
        // A gateway that answers others meanwhile is busy with this one; one that answers nobody is
        // not asked over this connection again.
        if (std::holds_alternative<XPCRoundTrip::Silence>(attempt) && line->replies == before)
            door->redialled(line, OthersOnIt::fail);
    }
    if (auto* const answer = std::get_if<XPCRoundTrip::Answered>(&attempt))
        co_return door->finish(std::move(*answer));
    co_return co_await doubleFailure(door, std::move(attempt));
}

/// Gives a new connection a moment, and finds a skew out early. Whatever comes of it, the retry
/// goes out.
QCoro::Task<> XPCClient::Door::knock(Shared door, SharedLine line) {
    {
        const std::lock_guard guard(door->m_lock);
        ++door->m_knocks;
    }
    Handover<bool> pause([&](const Handover<bool>::Give& give) {
        door->m_options.after(XPCRoundTrip::timerMilliseconds(door->m_options.redial.pause),
                              [give] { give(true); });
    });
    co_await pause;
    const Attempt attempt = co_await XPCRoundTrip::make(XPCRoundTrip::message(std::nullopt),
                                                        line->connection, door->budget());
    line->hear(attempt);
    const auto* const answer = std::get_if<XPCRoundTrip::Answered>(&attempt);
    if (answer && isSkewed(answer->wire))
        door->announceSkew();
}

QCoro::Task<WendlowClient::Timed> XPCClient::Door::doubleFailure(Shared door, Attempt attempt) {
    if (std::holds_alternative<XPCRoundTrip::Silence>(attempt)) {
        door->setFault(DoorFault::silent);
        co_return failure(DoorFaults::message(DoorFault::silent));
    }
    // Both closures ask the bus or the disk, so they are asked beside the caller's thread.
    Handover<bool> registered([&](const Handover<bool>::Give& give) {
        door->m_queue->aside([door, give] {
            give(door->m_options.serviceRegistered(door->m_options.machServiceName));
        });
    });
    const DoorFault fault = DoorFaults::forDoubleFailure(co_await registered);
    door->setFault(fault);
    if (fault == DoorFault::refused) {
        Handover<ClientLineage> lineage([&](const Handover<ClientLineage>::Give& give) {
            door->m_queue->aside([door, give] { give(door->m_options.clientLineage()); });
        });
        const ClientLineage judged = co_await lineage;
        if (const auto* const stale = std::get_if<LineageCase::Stale>(&judged))
            co_return failure(DoorFaults::staleRefusalMessage(stale->installedVersion));
    }
    co_return failure(DoorFaults::message(fault));
}

WendlowClient::Timed XPCClient::Door::finish(XPCRoundTrip::Answered answer) {
    m_history.setConnected();
    if (!isSkewed(answer.wire)) {
        setFault(std::nullopt);
        return {.response = std::move(answer.response), .daemon = answer.daemon};
    }
    announceSkew();
    setFault(DoorFault::skew);
    return failure(DoorFaults::message(DoorFault::skew));
}

void XPCClient::Door::announceSkew() {
    if (m_skewAnnounced.take() && m_options.onWireMismatch)
        m_options.onWireMismatch();
}

void XPCClient::Door::subscribe(EventHandler onEvent) {
    {
        const std::lock_guard guard(m_lock);
        m_onEvent = std::move(onEvent);
    }
    openSubscription();
}

void XPCClient::Door::ensureSubscribed() {
    bool reopen = false;
    {
        const std::lock_guard guard(m_lock);
        reopen = SubscriptionGate::shouldReopen(
            {.wantEvents = m_onEvent != nullptr, .hasLiveConnection = m_subConnection != nullptr});
    }
    if (reopen)
        openSubscription();
}

void XPCClient::Door::openSubscription() {
    xpc_connection_t connection =
        xpc_connection_create_mach_service(m_options.machServiceName, m_queue);
    // The connection holds its handler, so the handler does not hold the connection.
    xpc_connection_set_event_handler(
        connection,
        [door = weak_from_this(), weak = std::weak_ptr(connection)](const xpc_object_t& event) {
            const Shared living = door.lock();
            const xpc_connection_t open = weak.lock();
            if (living && open)
                living->eventArrived(event, open);
        });
    xpc_connection_t former = connection; // until they are swapped
    {
        const std::lock_guard guard(m_lock);
        former.swap(m_subConnection);
    }
    if (former)
        xpc_connection_cancel(former);
    xpc_connection_resume(connection);
    xpc_object_t wish = xpc_dictionary_create();
    xpc_dictionary_set_bool(wish, XPCEndpoint::subscribeKey, true);
    xpc_connection_send_message(connection, std::move(wish));
}

void XPCClient::Door::eventArrived(const xpc_object_t& event, const xpc_connection_t& connection) {
    if (xpc_get_type(event) == xpc_type_t::error) {
        xpc_connection_cancel(connection);
        const std::lock_guard guard(m_lock);
        if (m_subConnection == connection)
            m_subConnection = nullptr; // the wish for events stays
        return;
    }
    const std::string* const json = XPCWire::data(XPCEndpoint::eventKey, event);
    if (!json)
        return;
    const auto decoded = WireCodec::decodeEvent(*json);
    EventHandler onEvent;
    {
        const std::lock_guard guard(m_lock);
        onEvent = m_onEvent;
    }
    if (decoded && onEvent)
        onEvent(*decoded);
}

XPCClient::XPCClient() : XPCClient(Options{}) {}

XPCClient::XPCClient(Options options) : m_door(std::make_shared<Door>(std::move(options))) {}

XPCClient::~XPCClient() = default;

QCoro::Task<GatewayResponse> XPCClient::send(GatewayRequest request) {
    // Nothing of the client is used after the wait: it may have gone by then.
    Timed timed = co_await sendTimed(std::move(request));
    co_return std::move(timed.response);
}

QCoro::Task<WendlowClient::Timed> XPCClient::sendTimed(GatewayRequest request) {
    return Door::exchange(m_door, std::move(request));
}

void XPCClient::subscribe(EventHandler onEvent) {
    m_door->subscribe(std::move(onEvent));
}

void XPCClient::ensureSubscribed() {
    m_door->ensureSubscribed();
}

std::optional<DoorFault> XPCClient::lastDoorFault() const {
    return m_door->fault();
}

int XPCClient::knocks() const {
    return m_door->knocks();
}

} // namespace wendlow
