#include "Meetings/EditorLineEraser.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

using Line = EditorTranscript::Line;
namespace Case = EditorLineEraseCase;
namespace Delete = EditorLineDeleteCase;

bool saysTheSame(const Line& one, const Line& other) {
    return one.at == other.at && one.speaker == other.speaker && one.text == other.text;
}

/// What a delete has come to. Nothing: it was refused.
std::optional<EditorLineEraseResult> ended(EditorLineDelete outcome) {
    if (auto* const deleted = std::get_if<Delete::Deleted>(&outcome))
        return Case::Erased{std::move(deleted->transcript)};
    if (auto* const failed = std::get_if<Delete::Failed>(&outcome))
        return Case::Failed{std::move(failed->words)};
    return std::nullopt;
}

} // namespace

QCoro::Task<EditorLineEraseResult> EditorLineEraser::erase(Line line, std::string meeting,
                                                           MeetingSource& source) {
    if (auto result = ended(co_await source.deleteLine(meeting, line.id, line.witness)))
        co_return *std::move(result);
    EditorTranscriptResult read = co_await source.transcript(meeting);
    if (!read)
        co_return Case::Failed{std::move(read.error())};
    EditorTranscript fresh = *std::move(read);
    // The row is what cannot be trusted any more; the words are what the person meant.
    const auto isMeant = [&line](const Line& other) { return saysTheSame(line, other); };
    const auto found = std::ranges::find_if(fresh.lines, isMeant);
    if (found == fresh.lines.end()) {
        const bool isThere =
            std::ranges::find(fresh.lines, line.id, &Line::id) != fresh.lines.end();
        if (isThere)
            co_return Case::Changed{std::move(fresh)};
        co_return Case::Unchanged{std::move(fresh)};
    }
    // Between twins there is no telling which was meant.
    if (std::find_if(found + 1, fresh.lines.end(), isMeant) != fresh.lines.end())
        co_return Case::Stuck{std::move(fresh)};
    if (auto result = ended(co_await source.deleteLine(meeting, found->id, found->witness)))
        co_return *std::move(result);
    co_return Case::Stuck{std::move(fresh)};
}

} // namespace wendlow
