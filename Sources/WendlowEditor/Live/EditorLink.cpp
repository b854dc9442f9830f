#include "Live/EditorLink.h"

#include <utility>

namespace wendlow {

namespace {

GatewayResponse closed() {
    return AnswerCase::Failure{"The window was closed before this was sent."};
}

} // namespace

EditorLink::EditorLink(std::shared_ptr<WendlowClient> client, Clock clock)
    : m_client(std::move(client)), m_clock(std::move(clock)) {}

EditorLink::~EditorLink() {
    Waiting<Turn> now = m_now.takeAll();
    Waiting<Turn> later = m_later.takeAll();
    m_life.end();
    now.resumeAll(Turn::neverComes);
    later.resumeAll(Turn::neverComes);
}

QCoro::Task<EditorLink::Reply> EditorLink::serializedLeg(GatewayRequest request, Lane lane) {
    const Lifetime::Watch life = m_life.watch();
    LinkLeg leg{.arrived = m_clock(), .sent = {}, .replied = {}};
    if (m_busy) {
        const Turn turn = co_await (lane == Lane::now ? m_now : m_later);
        if (turn == Turn::neverComes)
            co_return Reply{closed(), leg};
    }
    m_busy = true;
    leg.sent = m_clock();
    // Both are held here: the link may go while its client still waits for the daemon.
    const std::shared_ptr<WendlowClient> client = m_client;
    const Clock clock = m_clock;
    WendlowClient::Timed answer = co_await client->sendTimed(std::move(request));
    leg.replied = clock();
    leg.daemon = answer.daemon;
    if (!life.expired())
        passOn();
    co_return Reply{std::move(answer.response), leg};
}

/// Hands the link to whoever is next; it stays busy in between, so that nobody slips in.
void EditorLink::passOn() {
    if (!m_now.empty())
        m_now.resumeFirst(Turn::begins);
    else if (!m_later.empty())
        m_later.resumeFirst(Turn::begins);
    else
        m_busy = false;
}

} // namespace wendlow
