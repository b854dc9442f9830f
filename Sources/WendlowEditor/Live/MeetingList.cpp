#include "Live/MeetingList.h"

#include <charconv>
#include <optional>
#include <string>
#include <utility>

namespace wendlow {

namespace {

using Parts = std::vector<std::string_view>;

Parts split(std::string_view text, std::string_view separator) {
    Parts parts;
    for (;;) {
        const auto at = text.find(separator);
        parts.push_back(text.substr(0, at));
        if (at == std::string_view::npos)
            return parts;
        text.remove_prefix(at + separator.size());
    }
}

/// Day, from and to out of "2026-11-21 10:00–10:30"; what is not so stays in one piece.
void readSpan(std::string_view span, EditorMeeting& meeting) {
    const auto blank = span.find(' ');
    meeting.day = span.substr(0, blank);
    if (blank == std::string_view::npos)
        return;
    const std::string_view rest = span.substr(blank + 1);
    const Parts times = split(rest, "–");
    meeting.from = times.size() == 2 ? times[0] : rest;
    meeting.to = times.size() == 2 ? times[1] : std::string_view();
}

/// What stands between quotes. Nothing: there are none.
std::optional<std::string_view> unquoted(std::string_view text) {
    if (!text.starts_with('"') || !text.ends_with('"'))
        return std::nullopt;
    return text.size() < 2 ? std::string_view() : text.substr(1, text.size() - 2);
}

std::vector<std::string> speakers(std::string_view text) {
    std::vector<std::string> names;
    if (text == "no named speakers" || text == "1 unnamed guest")
        return names;
    for (const std::string_view name : split(text, ", "))
        if (!name.empty())
            names.emplace_back(name);
    return names;
}

std::int64_t lineCount(std::string_view text) {
    std::string digits(text);
    for (const auto word = std::string_view(" lines"); digits.contains(word);)
        digits.erase(digits.find(word), word.size());
    std::int64_t count = 0;
    const auto* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, count);
    return error == std::errc() && stop == end ? count : 0;
}

std::optional<EditorMeeting> meeting(std::string_view line) {
    constexpr std::string_view bullet = "- ";
    if (!line.starts_with(bullet))
        return std::nullopt;
    const Parts parts = split(line.substr(bullet.size()), " · ");
    if (parts.size() != 5 && parts.size() != 6)
        return std::nullopt;
    EditorMeeting made{.id = std::string(parts[0])};
    readSpan(parts[1], made);
    made.duration = parts[2];
    std::size_t next = 3;
    const auto title = parts.size() == 6 ? unquoted(parts[next]) : std::nullopt;
    if (title) {
        ++next;
        if (!title->empty()) {
            made.title = *title;
            made.titleSource = "model";
        }
    }
    made.speakers = speakers(parts[next]);
    made.lines = lineCount(parts[next + 1]);
    return made;
}

} // namespace

std::vector<EditorMeeting> MeetingList::parse(std::string_view text) {
    std::vector<EditorMeeting> meetings;
    for (const std::string_view line : split(text, "\n"))
        if (auto made = meeting(line))
            meetings.push_back(*std::move(made));
    return meetings;
}

} // namespace wendlow
