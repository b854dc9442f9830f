#include "JourneyWords.h"

#include "Say.h"

#include <algorithm>
#include <cstddef>

#include <fmt/format.h>

namespace wendlow::JourneyWords {

namespace {

constexpr std::string_view bold = "**";

} // namespace

std::string_view Text::said() const {
    return say.view(m_english);
}

namespace LocalModels {

std::string rowState(Text state, std::string_view size) {
    return size.empty() ? std::string(state.said()) : fmt::format("{} · {}", size, state.said());
}

std::string rowProgress(std::string_view done, std::string_view total) {
    return say("{} of {}", done, total);
}

std::string rowProgressSoFar(std::string_view done) {
    return say("{} so far", done);
}

std::string totalLine(std::string_view done, std::string_view total) {
    return say("{} of {} so far.", done, total);
}

std::string estimate(std::string_view clock, int minutes) {
    return say.plural(minutes, "At the current rate, done by about {}, in {} minute.",
                      "At the current rate, done by about {}, in {} minutes.", clock, minutes);
}

std::string hint(std::string_view app, std::string_view total, Behind behind) {
    if (behind == Behind::nothing)
        return app.empty()
                   ? say("**Why we are telling you.** So you know what is happening on your Mac. "
                         "Wendlow itself is small. The models are {}. If that is too much, you can "
                         "back out now and nothing stays behind.",
                         total)
                   : say("**Why we are telling you.** So you know what is happening on your Mac. "
                         "Wendlow itself is {}. The models are {}. If that is too much, you can "
                         "back out now and nothing stays behind.",
                         app, total);
    return app.empty()
               ? say("**Why we are telling you.** So you know what is happening on your Mac. "
                     "Wendlow itself is small. The models are {}. If that is too much, you can "
                     "back out now.",
                     total)
               : say("**Why we are telling you.** So you know what is happening on your Mac. "
                     "Wendlow itself is {}. The models are {}. If that is too much, you can back "
                     "out now.",
                     app, total);
}

} // namespace LocalModels

Hint split(std::string_view hint) {
    if (!hint.starts_with(bold))
        return {.title = {}, .text = std::string(hint)};
    hint.remove_prefix(bold.size());
    const auto end = std::min(hint.find(bold), hint.size());
    std::string_view rest = hint.substr(std::min(end + bold.size(), hint.size()));
    while (rest.starts_with('\n') || rest.starts_with(' '))
        rest.remove_prefix(1);
    return {.title = std::string(hint.substr(0, end)), .text = std::string(rest)};
}

std::string_view linkIn(std::string_view sentence, std::string_view word) {
    const bool stands = !word.empty() && sentence.find(word) != std::string_view::npos;
    return stands ? word : sentence;
}

std::string plain(std::string_view marked) {
    std::string text(marked);
    for (auto at = text.find(bold); at != std::string::npos; at = text.find(bold, at))
        text.erase(at, bold.size());
    return text;
}

std::string styled(std::string_view marked) {
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
