#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Described.h"

namespace wendlow {

struct SessionOfferRow {
    std::string id;
    std::string title;
    std::string when;
    std::optional<std::string> length = std::nullopt;
    std::optional<std::int64_t> turns = std::nullopt;
    WENDLOW_RECORD(SessionOfferRow, id, title, when, length, turns);
};

/// Sessions of a scope that may be taken up again.
struct SessionOffer {
    std::string scope;
    std::vector<SessionOfferRow> rows;
    WENDLOW_RECORD(SessionOffer, scope, rows);
};

} // namespace wendlow
