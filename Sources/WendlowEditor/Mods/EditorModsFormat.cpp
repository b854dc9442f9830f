#include "Mods/EditorModsFormat.h"

#include "DateWords.h"
#include "Say.h"

namespace wendlow::EditorModsFormat {

std::string turns(std::optional<std::int64_t> count) {
    return count ? say.plural(*count, "{} turns", "{} turns", *count) : say("— turns");
}

std::string duration(std::int64_t seconds) {
    constexpr std::int64_t minute = 60, hour = 60 * minute;
    if (seconds < minute)
        return say("{}s", seconds);
    if (seconds < hour)
        return say("{}m {}s", seconds / minute, seconds % minute);
    return say("{}h {}m", seconds / hour, seconds % hour / minute);
}

std::string when(EditorDate date, const QLocale& locale) {
    return DateWords::dayAndTime(date, locale).toStdString();
}

} // namespace wendlow::EditorModsFormat
