#pragma once

#include "Model/EditorMeeting.h"

#include <string>
#include <string_view>
#include <vector>

/// What is said of a meeting beside what was said in it. Times stand as the daemon has worded them.
namespace wendlow::MeetingLabels {

/// Its title, or the application that it was held in.
std::string title(const EditorMeeting& meeting);
/// Its day, from when to when, and how long.
std::string span(const EditorMeeting& meeting);
std::string who(const std::vector<std::string>& speakers);
std::string lines(std::int64_t count);
/// How many meetings there are.
std::string meetings(std::size_t count);

} // namespace wendlow::MeetingLabels
