#include "GatewayResponse.h"

namespace wendlow {

WENDLOW_CASES_DEFINED(GatewayResponse)

std::string_view GatewayResponse::caseName() const {
    return std::visit([](const auto& which) { return which.wireName; }, *this);
}

} // namespace wendlow
