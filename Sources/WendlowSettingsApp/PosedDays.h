#pragma once

#include "Client.h"

#include <QDate>

#include <chrono>

namespace wendlow {

/// A daemon of invented days, for pictures: two that are full, one of which nothing is known, and
/// one whose figures and names are as odd as they can be.
class PosedDays final : public Gateway {
public:
    /// The evening of the first full day.
    static std::chrono::system_clock::time_point now();
    /// How many days before that the others lie.
    static constexpr int oddDaysAgo = 1;
    static constexpr int emptyDaysAgo = 2;
    static constexpr int fullDaysAgo = 3;

    QCoro::Task<GatewayResponse> handle(GatewayRequest request) override;
};

} // namespace wendlow
