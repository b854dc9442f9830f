#pragma once

#include "Model/EditorMeeting.h"

#include <string_view>
#include <vector>

namespace wendlow::MeetingList {

/// The meetings of a list as the daemon words it, a line each. What is not such a line is passed
/// over.
std::vector<EditorMeeting> parse(std::string_view text);

} // namespace wendlow::MeetingList
