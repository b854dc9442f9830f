#include "WarmingGateway.h"

namespace wendlow {

QCoro::Task<GatewayResponse> WarmingGateway::handle(GatewayRequest request) {
    if (request.verb() == NotesCase::ScopeBoard::verb)
        co_return AnswerCase::ScopeBoard{};
    co_return AnswerCase::TextBrowse{};
}

} // namespace wendlow
