#include "JourneyWords.h"

#include <algorithm>
#include <cstddef>

#include <fmt/format.h>

namespace wendlow::JourneyWords {

namespace {

constexpr std::string_view bold = "**";

} // namespace

namespace LocalModels {

std::string rowState(Text state, Text size) {
    return size.empty() ? std::string(state) : fmt::format("{} · {}", size, state);
}

std::string rowProgress(Text done, Text total) {
    return fmt::format("{} of {}", done, total);
}

std::string rowProgressSoFar(Text done) {
    return fmt::format("{} so far", done);
}

std::string totalLine(Text done, Text total) {
    return fmt::format("{} of {} so far.", done, total);
}

std::string estimate(Text clock, int minutes) {
    return fmt::format("At the current rate, done by about {}, in {} minutes.", clock, minutes);
}

std::string hint(Text app, Text total, Behind behind) {
    return fmt::format("**Why we are telling you.** So you know what is happening on your Mac. "
                       "Wendlow itself is {}. The models are {}. If that is too much, you can back "
                       "out now{}",
                       app, total, behind == Behind::nothing ? " and nothing stays behind." : ".");
}

} // namespace LocalModels

Hint split(Text hint) {
    if (!hint.starts_with(bold))
        return {.title = {}, .text = std::string(hint)};
    hint.remove_prefix(bold.size());
    const auto end = std::min(hint.find(bold), hint.size());
    Text rest = hint.substr(std::min(end + bold.size(), hint.size()));
    while (rest.starts_with('\n') || rest.starts_with(' '))
        rest.remove_prefix(1);
    return {.title = std::string(hint.substr(0, end)), .text = std::string(rest)};
}

std::string plain(Text marked) {
    std::string text(marked);
    for (auto at = text.find(bold); at != std::string::npos; at = text.find(bold, at))
        text.erase(at, bold.size());
    return text;
}

std::string styled(Text marked) {
    std::string text;
    bool open = false;
    for (std::size_t at = 0; at < marked.size(); ++at) {
        if (marked.substr(at).starts_with(bold)) {
            text += open ? "</b>" : "<b>";
            open = !open;
            at += bold.size() - 1;
        } else if (marked[at] == '&') {
            text += "&amp;";
        } else if (marked[at] == '<') {
            text += "&lt;";
        } else if (marked[at] == '\n') {
            text += "<br>";
        } else {
            text += marked[at];
        }
    }
    return open ? text + "</b>" : text;
}

} // namespace wendlow::JourneyWords
