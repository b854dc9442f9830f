#include "Service/SteeredGateway.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace wendlow {

namespace {

template<class... Cases>
bool hasVerb(std::string_view verb, const std::variant<Cases...>* /*requests*/) {
    return ((verb == Cases::verb) || ...);
}

bool isVerb(std::string_view verb) {
    return hasVerb(verb, static_cast<const ReadRequest::variant*>(nullptr)) ||
           hasVerb(verb, static_cast<const ControlRequest::variant*>(nullptr)) ||
           hasVerb(verb, static_cast<const NotesRequest::variant*>(nullptr)) ||
           hasVerb(verb, static_cast<const DiagnosticRequest::variant*>(nullptr));
}

std::expected<void, std::string> put(std::string_view verb, GatewayResponse answer,
                                     SteeredGateway::Answers& answers) {
    if (!isVerb(verb))
        return std::unexpected(std::string(verb));
    answers.insert_or_assign(std::string(verb), std::move(answer));
    return {};
}

} // namespace

SteeredGateway::SteeredGateway(std::shared_ptr<Gateway> steered, Answers answers)
    : m_steered(std::move(steered)), m_answers(std::move(answers)) {}

QCoro::Task<GatewayResponse> SteeredGateway::handle(GatewayRequest request) {
    const auto found = m_answers.find(request.verb());
    if (found != m_answers.end())
        co_return found->second;
    const std::shared_ptr<Gateway> steered = m_steered;
    co_return co_await steered->handle(std::move(request));
}

std::expected<void, std::string> SteeredGateway::refuse(std::string_view words, Answers& answers) {
    const std::size_t end = std::min(words.find('='), words.size());
    const std::string_view rest = words.substr(std::min(end + 1, words.size()));
    return put(words.substr(0, end), AnswerCase::Failure{std::string(rest)}, answers);
}

std::expected<void, std::string> SteeredGateway::unimplemented(std::string_view verb,
                                                               Answers& answers) {
    return put(verb, AnswerCase::Unimplemented{std::string(verb)}, answers);
}

std::expected<void, std::string> SteeredGateway::garble(std::string_view verb, Answers& answers) {
    // One asks for icons, and nothing else for what became of a line.
    if (verb == ControlCase::DeleteUtterance::verb)
        return put(verb, AnswerCase::Icons{}, answers);
    return put(verb, AnswerCase::LineDelete{}, answers);
}

} // namespace wendlow
