#include "MenuHealth.h"

#include "GatewayResponse.h"
#include "Say.h"

namespace wendlow {

namespace {

std::optional<std::string> resumption(const std::string& text) {
    constexpr std::string_view word = "resumes ";
    const std::size_t at = text.find(word);
    if (at == std::string::npos)
        return std::nullopt;
    const std::size_t begin = at + word.size();
    const std::size_t end = std::min(text.find(')', begin), text.size());
    if (begin == end)
        return std::nullopt;
    return text.substr(begin, end - begin);
}

MenuHealth healthOf(const std::string& text) {
    if (text == "healthy")
        return HealthCase::Recording{};
    if (text.find("stopped") != std::string::npos || text.find("paused") != std::string::npos)
        return HealthCase::Paused{resumption(text)};
    return HealthCase::Attention{text};
}

} // namespace

MenuHealth MenuHealth::decide(const GatewayResponse& health, std::optional<DoorFault> fault,
                              ClientProfile profile) {
    if (const auto* failure = std::get_if<AnswerCase::Failure>(&health))
        return HealthCase::Attention{fault ? DoorFaults::menuLine(*fault, profile)
                                           : failure->message};
    if (const auto* text = std::get_if<AnswerCase::Text>(&health))
        return healthOf(text->_0);
    return HealthCase::Attention{say("Wendlow sent an answer we couldn't read")};
}

} // namespace wendlow
