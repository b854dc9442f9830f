#include "UnimplementedGateway.h"

namespace wendlow {

QCoro::Task<GatewayResponse> UnimplementedGateway::handle(GatewayRequest request) {
    co_return AnswerCase::Unimplemented{std::string(request.verb())};
}

} // namespace wendlow
