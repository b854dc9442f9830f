#include "Floor/EditorWords.h"

#include "Floor/RowText.h"
#include "Say.h"

namespace wendlow::EditorWords {

Strip strip(const EditorAnswerState& state) {
    if (const auto* const failed = std::get_if<EditorAnswerStateCase::Failed>(&state))
        return {.words = RowText::plain(failed->words), .warns = true};
    if (!std::holds_alternative<EditorAnswerStateCase::Warming>(state))
        return {};
    const std::string_view words = say.view(
        "Searching your memories will be ready in a moment — the index is still building.");
    return {.words = RowText::plain(words)};
}

QString reading() {
    return RowText::plain(say.view("Reading your memories…"));
}

QString nothingHere() {
    return RowText::plain(say.view("Nothing here yet."));
}

QString notWired() {
    return RowText::plain(say.view("This surface isn’t wired to your real data yet."));
}

QString empty(const EditorAnswer& answer, bool hasRows) {
    if (hasRows || !strip(answer.state).words.isEmpty())
        return {};
    return answer.ready() ? nothingHere() : reading();
}

} // namespace wendlow::EditorWords
