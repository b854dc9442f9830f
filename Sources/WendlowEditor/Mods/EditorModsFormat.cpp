#include "Mods/EditorModsFormat.h"

#include "DateWords.h"

#include <fmt/format.h>

namespace wendlow::EditorModsFormat {

std::string turns(std::optional<std::int64_t> count) {
    return count ? fmt::format("{}", *count) : "—";
}

std::string duration(std::int64_t seconds) {
    constexpr std::int64_t minute = 60, hour = 60 * minute;
    if (seconds < minute)
        return fmt::format("{}s", seconds);
    if (seconds < hour)
        return fmt::format("{}m {}s", seconds / minute, seconds % minute);
    return fmt::format("{}h {}m", seconds / hour, seconds % hour / minute);
}

std::string when(EditorDate date, const QLocale& locale) {
    return DateWords::dayAndTime(date, locale).toStdString();
}

} // namespace wendlow::EditorModsFormat
