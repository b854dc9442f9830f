#include "Model/EditorMeeting.h"

#include <algorithm>
#include <string_view>

namespace wendlow {

std::string EditorMeeting::app() const {
    // The third piece may hold colons of its own.
    std::vector<std::string_view> pieces;
    std::string_view rest = id;
    while (!rest.empty() && pieces.size() < 2) {
        const auto colon = rest.find(':');
        if (colon != 0)
            pieces.push_back(rest.substr(0, colon));
        rest = colon == std::string_view::npos ? std::string_view() : rest.substr(colon + 1);
    }
    return pieces.size() == 2 && !rest.empty() && pieces[0] == "meeting" ? std::string(pieces[1])
                                                                         : id;
}

EditorTranscript EditorTranscript::removing(std::int64_t rowid) const {
    EditorTranscript rest = *this;
    std::erase_if(rest.lines, [rowid](const Line& line) { return line.id == rowid; });
    return rest;
}

} // namespace wendlow
