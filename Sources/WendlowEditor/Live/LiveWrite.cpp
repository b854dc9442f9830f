#include "Live/LiveWrite.h"

#include "Live/AnswerWords.h"
#include "Say.h"

#include <utility>

namespace wendlow {

QCoro::Task<EditorWriteOutcome> LiveWrite::send(EditorLink& link, NotesRequest request) {
    EditorLink::Reply reply = co_await link.send(std::move(request), EditorLink::Lane::now);
    if (const auto* const text = std::get_if<AnswerCase::Text>(&reply.response))
        co_return EditorWriteOutcome::wrote(text->_0);
    const auto note = expect<AnswerCase::NoteID>(std::move(reply.response));
    if (note)
        co_return EditorWriteOutcome::wrote(say("Saved {}.", note->_0));
    co_return EditorWriteOutcome::refused(AnswerWords::of(
        note.error(), AnswerWords::Question::write, AnswerWords::MissingDoor::named));
}

} // namespace wendlow
