#include "Meetings/MeetingLabels.h"

#include "Say.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <initializer_list>

namespace wendlow::MeetingLabels {

namespace {

std::string joined(std::initializer_list<std::string_view> parts, std::string_view between) {
    std::string text;
    for (const std::string_view part : parts)
        if (!part.empty())
            text.append(text.empty() ? std::string_view() : between).append(part);
    return text;
}

} // namespace

std::string title(const EditorMeeting& meeting) {
    return meeting.title && !meeting.title->empty() ? *meeting.title : meeting.app();
}

std::string span(const EditorMeeting& meeting) {
    return joined({meeting.day, joined({meeting.from, meeting.to}, "–"), meeting.duration}, " · ");
}

std::string who(const std::vector<std::string>& speakers) {
    return speakers.empty() ? say("no named speakers")
                            : fmt::format("{}", fmt::join(speakers, ", "));
}

std::string lines(std::int64_t count) {
    return say.plural(count, "{} lines", "{} lines", count);
}

std::string meetings(std::size_t count) {
    return say.plural(static_cast<std::int64_t>(count), "{} meeting", "{} meetings", count);
}

} // namespace wendlow::MeetingLabels
