#include "Floor/EditorWords.h"

#include "Floor/RowText.h"

namespace wendlow::EditorWords {

Strip strip(const EditorAnswerState& state) {
    if (const auto* const failed = std::get_if<EditorAnswerStateCase::Failed>(&state))
        return {.words = RowText::plain(failed->words), .warns = true};
    if (std::holds_alternative<EditorAnswerStateCase::Warming>(state))
        return {.words = QStringLiteral("Searching your memories will be ready in a moment — the "
                                        "index is still building.")};
    return {};
}

QString reading() {
    return QStringLiteral("Reading your memories…");
}

QString nothingHere() {
    return QStringLiteral("Nothing here yet.");
}

QString notWired() {
    return QStringLiteral("This surface isn’t wired to your real data yet.");
}

QString empty(const EditorAnswer& answer, bool hasRows) {
    if (hasRows || !strip(answer.state).words.isEmpty())
        return {};
    return answer.ready() ? nothingHere() : reading();
}

} // namespace wendlow::EditorWords
