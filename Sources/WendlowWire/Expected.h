#pragma once

#include <expected>
#include <string>
#include <utility>
#include <variant>

#include "GatewayResponse.h"

namespace wendlow {

/// An answer that is not of the case that was asked for.
struct AnswerRefusal {
    enum class Kind {
        failure,       ///< a refusal or an error, in the daemon's own words
        unimplemented, ///< the daemon has no handler for this request
        notUnderstood  ///< any other case; this request cannot be answered so
    };

    Kind kind = Kind::notUnderstood;
    /// The failure's message, the verb that has no handler, or the name of the other case.
    std::string words;

    static AnswerRefusal of(const GatewayResponse& response);

    /// Whether the daemon is older than the request: it has no handler for it or cannot read it.
    bool isFromOlderDaemon() const;

    bool operator==(const AnswerRefusal&) const = default;
};

/// The answer, where it is of the one case that fits the question, or else why there is none:
/// `const auto board = expect<AnswerCase::ScopeBoard>(std::move(reply.response));`
template<class Case> std::expected<Case, AnswerRefusal> expect(GatewayResponse response) {
    if (auto* const answer = std::get_if<Case>(&response))
        return std::move(*answer);
    return std::unexpected(AnswerRefusal::of(response));
}

} // namespace wendlow
