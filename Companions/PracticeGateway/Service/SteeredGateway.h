#pragma once

#include <expected>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "Client.h"

namespace wendlow {

/// A gateway in front of another that answers some verbs otherwise: with a refusal, as if it were
/// too old for them, or with an answer to another question. What it answers so is not done.
class SteeredGateway final : public Gateway {
public:
    using Answers = std::map<std::string, GatewayResponse, std::less<>>; ///< by verb

    SteeredGateway(std::shared_ptr<Gateway> steered, Answers answers);

    QCoro::Task<GatewayResponse> handle(GatewayRequest request) override;

    /// Of "VERB=WORDS", "VERB" and "VERB", put beside the others. The error is what was no verb of
    /// the contract.
    static std::expected<void, std::string> refuse(std::string_view words, Answers& answers);
    static std::expected<void, std::string> unimplemented(std::string_view verb, Answers& answers);
    static std::expected<void, std::string> garble(std::string_view verb, Answers& answers);

private:
    const std::shared_ptr<Gateway> m_steered;
    const Answers m_answers;
};

} // namespace wendlow
