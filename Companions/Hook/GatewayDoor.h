#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "HookSpeech.h"

namespace wendlow {

/// The way to the gateway for a process that lives for one prompt: one connection to the session
/// bus, made at the first question, no thread and no event loop. Whatever the bus or the gateway
/// does, `ask` is back by the deadline; a failure is a sentence for a log. No service is started,
/// and nothing is asked twice.
class GatewayDoor {
public:
    using Clock = std::chrono::steady_clock;

    GatewayDoor(std::string name, Clock::time_point deadline);
    ~GatewayDoor();
    GatewayDoor(const GatewayDoor&) = delete;
    GatewayDoor& operator=(const GatewayDoor&) = delete;

    /// All at once; an answer for each, in their order.
    std::vector<HookAnswer> ask(const std::vector<GatewayRequest>& questions);

private:
    struct Bus;
    struct Question;

    void send(const GatewayRequest& request, Question& question);
    /// One step of the conversation; the sentence why there is none any more.
    const char* goOn();

    std::string m_name;
    Clock::time_point m_deadline;
    std::unique_ptr<Bus> m_bus;
};

} // namespace wendlow
