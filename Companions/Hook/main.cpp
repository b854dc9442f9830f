// What an AI tool runs at its events: `wendlow-hook --harness <harness> [--slot <slot>]`, either
// flag also with `=`. It asks the gateway what is remembered and says it in the tool's own form. A
// tool shows its person whatever a hook prints beside that and any exit status but 0, and may hold
// their prompt until the hook ends; so no argument, input or failure makes it do either, and it
// never outstays its time. What went wrong is a line in a log.

#include "ClientInstance.h"
#include "Explanation.h"
#include "GatewayDoor.h"
#include "HookCall.h"
#include "HookEvent.h"
#include "HookLog.h"
#include "HookSpeech.h"
#include "RuntimeFolder.h"
#include "StandardInput.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <span>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

using namespace wendlow;
using Clock = GatewayDoor::Clock;
using namespace std::chrono_literals;

/// The tools give a hook three seconds. What is known by the first bound is still written out; the
/// second ends whatever waits, on a disk or for a reader.
constexpr auto patience = 2200ms;
constexpr auto belt = 2500ms;

extern "C" void leave(int /*signal*/) {
    ::_exit(EXIT_SUCCESS);
}

/// The number of a closed one would be given to what is opened next, such as the bus.
void keepStandardFiles() {
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(standard, F_GETFD) < 0 && ::open("/dev/null", O_RDWR) != standard)
            ::_exit(EXIT_SUCCESS);
}

void buckle() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGALRM, &leave);
    itimerval limit{};
    limit.it_value.tv_sec = belt / 1s;
    limit.it_value.tv_usec = (belt % 1s) / 1us;
    ::setitimer(ITIMER_REAL, &limit, nullptr);
}

void print(std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(STDOUT_FILENO, text.data(), text.size());
        if (written < 0 && errno != EINTR)
            return; // nobody reads it
        text.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
}

/// What is said to the tool; empty for nothing.
std::string answer(const HookCall& call, std::string_view input, Clock::time_point deadline) {
    const auto event = HookEvent::read(input);
    if (!event) {
        HookLog::line(std::string(call.harness->name) + ": what the tool says does not read");
        return {};
    }
    // Cursor's own entry serves each of its prompts.
    if (event->isCursors && call.harness->shape != HookHarness::Shape::cursor)
        return {};
    if (call.slot == HookSlot::pretool)
        return HookEnvelope::arguments(*call.harness, *event);
    GatewayDoor door(std::string(ClientInstance::gatewayID), deadline);
    const HookSpeech speech =
        HookSpeech::gather(call.slot, *call.harness, *event, HookSpeech::Counting::counts,
                           [&](const auto& questions) { return door.ask(questions); });
    for (const std::string& fault : speech.faults)
        HookLog::line(std::string(call.harness->name) + ": " + fault);
    return HookEnvelope::context(*call.harness, speech.text(*call.harness));
}

void run(std::span<const char* const> words, Clock::time_point start) {
    const auto deadline = start + patience;
    const auto call = HookCall::parse(words);
    if (call && call->explains) {
        print(Explanation::of(*call, deadline));
        return;
    }
    const auto input = StandardInput::read(deadline);
    if (!call || !input || input->empty())
        return;
    print(answer(*call, *input, deadline));
}

} // namespace

int main(int count, char** words) {
    const Clock::time_point start = Clock::now();
    keepStandardFiles();
    buckle();
    findRuntimeFolder();
    try {
        run({words + std::min(count, 1), static_cast<std::size_t>(std::max(count - 1, 0))}, start);
    } catch (const std::exception& error) {
        HookLog::line(std::string("given up: ") + error.what());
    }
    // What the libraries would tidy up goes with the process.
    ::_exit(EXIT_SUCCESS);
}
