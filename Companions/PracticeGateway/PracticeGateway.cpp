#include "PracticeGateway.h"

#include <exception>
#include <tuple>
#include <utility>

#include <QCoroFuture>
#include <QtConcurrentRun>

#include "Dispatch.h"
#include "PracticeRooms.h"

namespace wendlow {

namespace {

bool isShutdown(const GatewayRequest& request) {
    const auto* control = std::get_if<GatewayCase::Control>(&request);
    return control != nullptr && std::holds_alternative<ControlCase::Shutdown>(control->_0);
}

bool isPhrase(const GatewayRequest& request) {
    const auto* control = std::get_if<GatewayCase::Control>(&request);
    return control != nullptr && std::holds_alternative<ControlCase::EnterPhrase>(control->_0);
}

} // namespace

std::expected<std::shared_ptr<PracticeGateway>, std::string>
PracticeGateway::open(const std::filesystem::path& database, Hooks hooks) {
    auto rooms = PracticeRooms::open(database, hooks.now);
    if (!rooms)
        return std::unexpected(rooms.error());
    return std::make_shared<PracticeGateway>(std::move(*rooms), std::move(hooks));
}

PracticeGateway::PracticeGateway(std::unique_ptr<PracticeRooms> rooms, Hooks hooks)
    : m_hooks(std::move(hooks)), m_rooms(std::move(rooms)) {
    m_lane.setMaxThreadCount(1);
    m_lane.setExpiryTimeout(-1);
    lookAtFront();
}

PracticeGateway::~PracticeGateway() {
    m_lane.waitForDone();
}

std::expected<void, std::string> PracticeGateway::fill(FillSize size) {
    m_lane.waitForDone();
    return m_rooms->fill(size);
}

void PracticeGateway::passTime() {
    // A database that went bad is told to whoever asks next.
    m_lane.start([this] {
        std::ignore = m_rooms->passTime();
        std::ignore = m_rooms->addMoment();
    });
}

void PracticeGateway::answerDays(DayManner manner) {
    m_lane.waitForDone();
    m_days = manner;
}

void PracticeGateway::answerRules(RuleManner manner) {
    m_lane.waitForDone();
    m_rooms->rules().setManner(manner);
}

void PracticeGateway::protect(StoreProtection protection) {
    m_lane.waitForDone();
    m_rooms->phrase().protect(protection);
}

void PracticeGateway::keepTraceLogAt(const std::filesystem::path& file) {
    m_lane.waitForDone();
    m_rooms->daemon().keepTraceLogAt(file);
}

void PracticeGateway::meddleWithLines(std::vector<LineManner> manners) {
    m_lane.waitForDone();
    m_rooms->meetings().setManners(std::move(manners));
}

void PracticeGateway::answerMods(ModManner manner) {
    m_lane.waitForDone();
    m_rooms->mods().setManner(manner);
}

void PracticeGateway::answerGrants(GrantManner manner) {
    m_lane.waitForDone();
    m_rooms->grants().setManner(std::move(manner));
}

QCoro::Task<GatewayResponse> PracticeGateway::handle(GatewayRequest request) {
    const auto shutDown = isShutdown(request) ? m_hooks.shutDown : nullptr;
    const auto restart = isPhrase(request) ? m_hooks.restart : nullptr;
    const QFuture<GatewayResponse> future = QtConcurrent::run(
        &m_lane, [this, request = std::move(request)] { return answer(request); });
    GatewayResponse response = co_await future;
    if (shutDown)
        shutDown();
    // A phrase that opens nothing is a failure.
    if (restart && std::holds_alternative<AnswerCase::Text>(response))
        restart();
    co_return response;
}

void PracticeGateway::lookAtFront() {
    m_lane.start([this] { pushFront(); });
}

GatewayResponse PracticeGateway::answer(const GatewayRequest& request) try {
    if (auto locked = m_rooms->phrase().whileLocked(request.verb()))
        return std::move(*locked);
    GatewayResponse response = Dispatch::answer(request, m_rooms->all());
    m_days.change(response);
    if (std::holds_alternative<GatewayCase::Control>(request))
        pushFront();
    return response;
} catch (const std::exception& error) {
    // A room's own mistakes, and a database that went bad beneath it.
    return AnswerCase::Failure{error.what()};
}

void PracticeGateway::pushFront() {
    // A database that went bad is told to whoever asks next; here nobody did.
    const auto response = answer(ReadRequest(ReadCase::FrontState{}));
    const auto* front = std::get_if<AnswerCase::FrontState>(&response);
    if (front == nullptr)
        return;
    const bool changed = m_front && *m_front != front->_0;
    m_front = front->_0;
    if (changed)
        m_hooks.push(EventCase::FrontState{front->_0});
}

} // namespace wendlow
