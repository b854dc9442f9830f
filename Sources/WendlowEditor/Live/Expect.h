#pragma once

#include "GatewayResponse.h"

#include <expected>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace wendlow {

/// Whether a daemon that has no such door is told so, or taken for one that answers strangely.
enum class MissingDoor { strange, named };

/// Why this is no answer to what was asked, in words: the daemon's own, or that `answered`, "the
/// write" or nothing, is not understood.
std::string misfit(const GatewayResponse& response, std::string_view answered, MissingDoor door);

/// The answer that was asked for, or the words for why it is not that.
template<class Case>
std::expected<Case, std::string> expect(GatewayResponse response, std::string_view answered = {},
                                        MissingDoor door = MissingDoor::strange) {
    if (auto* const found = std::get_if<Case>(&response))
        return std::move(*found);
    return std::unexpected(misfit(response, answered, door));
}

} // namespace wendlow
