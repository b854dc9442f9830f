#include "Expected.h"

#include "GatewayWire.h"

namespace wendlow {

AnswerRefusal AnswerRefusal::of(const GatewayResponse& response) {
    if (const auto* const failure = std::get_if<AnswerCase::Failure>(&response))
        return {.kind = Kind::failure, .words = failure->message};
    if (const auto* const missing = std::get_if<AnswerCase::Unimplemented>(&response))
        return {.kind = Kind::unimplemented, .words = missing->verb};
    return {.kind = Kind::notUnderstood, .words = std::string(response.caseName())};
}

bool AnswerRefusal::isFromOlderDaemon() const {
    return kind == Kind::unimplemented ||
           (kind == Kind::failure && words == GatewayWire::malformedRequest);
}

} // namespace wendlow
