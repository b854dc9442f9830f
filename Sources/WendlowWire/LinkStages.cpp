#include "LinkStages.h"

#include <algorithm>

#include <fmt/format.h>

namespace wendlow {

std::int64_t LinkStages::wholeMillis(Duration duration) {
    const auto millis = std::chrono::duration_cast<std::chrono::milliseconds>(duration).count();
    return std::max<std::int64_t>(millis, 0);
}

std::string LinkStages::line(std::string_view verb) const {
    const auto shareOf = [](const std::optional<Duration>& stage, std::int64_t rest) {
        return stage ? std::min(wholeMillis(*stage), rest) : 0;
    };
    const std::int64_t all = wholeMillis(total);
    const std::int64_t waiting = shareOf(queued, all);
    std::int64_t rest = all - waiting;
    const std::int64_t drawing = shareOf(render, rest);
    rest -= drawing;
    const std::int64_t away = shareOf(wire, rest);
    const std::int64_t serving = shareOf(daemon, away);

    std::string text = fmt::format("slow link {}: total={}ms queued={}ms ipc={}ms", verb, all,
                                   waiting, away - serving);
    if (daemon)
        text += fmt::format(" daemon={}ms", serving);
    if (render)
        text += fmt::format(" render={}ms", drawing);
    return text + fmt::format(" residual={}ms", rest - away);
}

} // namespace wendlow
