#include "ProcessStart.h"

#include <cstdint>
#include <ctime>
#include <fstream>
#include <sstream>
#include <string>

#include <unistd.h>

namespace wendlow {

namespace {

using Clock = std::chrono::system_clock;

constexpr int fieldsBeforeStart = 19; ///< between the program's name and the start

/// In ticks since the machine booted. The program's name stands in parentheses and may hold
/// anything, blanks and parentheses too.
std::optional<std::int64_t> startTicks() {
    std::ifstream file("/proc/self/stat");
    std::stringstream text;
    text << file.rdbuf();
    const std::string line = text.str();
    const std::size_t nameEnd = line.rfind(')');
    if (nameEnd == std::string::npos)
        return std::nullopt;
    std::istringstream fields(line.substr(nameEnd + 1));
    std::string skipped;
    for (int field = 0; field < fieldsBeforeStart; ++field)
        fields >> skipped;
    std::int64_t ticks = 0;
    if (!(fields >> ticks))
        return std::nullopt;
    return ticks;
}

std::chrono::nanoseconds sinceBoot() {
    timespec now{};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

} // namespace

std::optional<Clock::time_point> processStart() {
    const std::optional<std::int64_t> ticks = startTicks();
    const std::int64_t ticksPerSecond = ::sysconf(_SC_CLK_TCK);
    if (!ticks || ticksPerSecond <= 0)
        return std::nullopt;
    const Clock::time_point boot =
        Clock::now() - std::chrono::duration_cast<Clock::duration>(sinceBoot());
    // Rounded up: a file that was written just before the start must not look newer than it.
    return boot + std::chrono::milliseconds((*ticks + 1) * 1000 / ticksPerSecond + 1);
}

} // namespace wendlow
