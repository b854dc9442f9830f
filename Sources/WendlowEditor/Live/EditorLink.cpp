#include "Live/EditorLink.h"

#include "LinkStages.h"
#include "LogCategories.h"
#include "Say.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

GatewayResponse closed() {
    return AnswerCase::Failure{say("The window was closed before this was sent.")};
}

bool changesNothing(const GatewayRequest& request) {
    return std::holds_alternative<GatewayCase::Read>(request) ||
           request.verb() == NotesCase::ScopeBoard::verb;
}

} // namespace

/// A request that has been sent: answered, or given up, whichever is first.
struct EditorLink::Call {
    std::optional<WendlowClient::Timed> answer;
    Waiting<bool> ended;

    void end(WendlowClient::Timed with) {
        if (answer)
            return;
        answer = std::move(with);
        ended.resumeAll(true);
    }
};

EditorLink::EditorLink(std::shared_ptr<WendlowClient> client, Note note, Clock clock)
    : m_client(std::move(client)), m_note(std::move(note)), m_clock(std::move(clock)) {}

EditorLink::~EditorLink() {
    Waiting<Turn> now = m_now.takeAll();
    Waiting<Turn> later = m_later.takeAll();
    m_life.end();
    now.resumeAll(Turn::neverComes);
    later.resumeAll(Turn::neverComes);
}

QCoro::Task<EditorLink::Reply> EditorLink::send(GatewayRequest request, Lane lane) {
    const Lifetime::Watch life = m_life.watch();
    const std::string name = request.caseName();
    Reply reply = co_await serializedLeg(std::move(request), lane);
    if (!life.expired())
        report(reply.leg, name);
    co_return reply;
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
    const auto call = std::make_shared<Call>();
    m_call = changesNothing(request) ? call : nullptr;
    // Held here: the link may go while its client still waits for the daemon.
    const Clock clock = m_clock;
    // Runs on by itself, and ends with the daemon's answer, whether or not anybody still waits.
    [[maybe_unused]] const auto task = exchange(m_client, std::move(request), call);
    if (!call->answer)
        co_await call->ended;
    WendlowClient::Timed answer = *std::move(call->answer);
    leg.replied = clock();
    leg.daemon = answer.daemon;
    if (!life.expired()) {
        m_call.reset();
        passOn();
    }
    co_return Reply{std::move(answer.response), leg};
}

QCoro::Task<> EditorLink::exchange(std::shared_ptr<WendlowClient> client, GatewayRequest request,
                                   std::shared_ptr<Call> call) {
    call->end(co_await client->sendTimed(std::move(request)));
}

void EditorLink::abandon() {
    if (const auto call = std::exchange(m_call, nullptr))
        call->end(
            {.response = AnswerCase::Failure{say("Wendlow has not answered.")}, .daemon = {}});
}

void EditorLink::report(const LinkLeg& leg, const std::string& verb,
                        std::optional<LinkLeg::Instant> rendered) const {
    constexpr std::chrono::milliseconds slow{100};
    LinkStages stages{.queued = leg.sent - leg.arrived,
                      .wire = leg.replied - leg.sent,
                      .daemon = leg.daemon,
                      .total = rendered.value_or(leg.replied) - leg.arrived};
    if (rendered)
        stages.render = *rendered - leg.replied;
    if (std::max({stages.wire, stages.queued, stages.render.value_or(slow)}) <= slow)
        return;
    const std::string line = stages.line(verb);
    qCInfo(LogCategory::editorOpen, "%s", line.c_str());
    if (m_note)
        m_note(line);
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
