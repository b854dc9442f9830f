// What the live store writes, and what it reads again afterwards.

#include "Live/EditorLiveStore.h"

#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

using Lane = EditorLink::Lane;

std::string noDoor(const std::string& verb) {
    return fmt::format("This build of Wendlow has no {} door.", verb);
}

EditorWriteOutcome outcome(const GatewayResponse& response) {
    if (const auto* const text = std::get_if<AnswerCase::Text>(&response))
        return EditorWriteOutcome::wrote(text->_0);
    if (const auto* const note = std::get_if<AnswerCase::NoteID>(&response))
        return EditorWriteOutcome::wrote(fmt::format("Saved {}.", note->_0));
    if (const auto* const missing = std::get_if<AnswerCase::Unimplemented>(&response))
        return EditorWriteOutcome::refused(noDoor(missing->verb));
    if (const auto* const failure = std::get_if<AnswerCase::Failure>(&response))
        return EditorWriteOutcome::refused(failure->message);
    return EditorWriteOutcome::refused(
        "Wendlow answered the write with something this mod does not understand.");
}

} // namespace

QCoro::Task<EditorWriteOutcome> EditorLiveStore::write(NotesRequest request, Boards boards) {
    const Lifetime::Watch life = m_life.watch();
    const EditorLink::Reply reply = co_await send(std::move(request), Lane::now);
    EditorWriteOutcome made = outcome(reply.response);
    if (made.ok() && !life.expired()) {
        grow();
        co_await refreshBoards(boards);
    }
    co_return made;
}

QCoro::Task<> EditorLiveStore::refreshBoards(Boards after) {
    switch (after) {
    case Boards::none:
        break;
    case Boards::memories:
        // The answer moves the rail's counts on its way.
        co_await baseline();
        break;
    case Boards::scopes:
        co_await reloadScopeBoard();
        break;
    }
}

QCoro::Task<EditorWriteOutcome> EditorLiveStore::editRuleLine(std::string id, std::string from,
                                                              std::string to) {
    return write(NotesCase::Patch{.id = std::move(id),
                                  .field = "text",
                                  .find = std::move(from),
                                  .replace = std::move(to),
                                  .replaceAll = false},
                 Boards::none);
}

QCoro::Task<EditorWriteOutcome> EditorLiveStore::addRule(std::string text, std::string why,
                                                         EditorRulePlacement placement,
                                                         std::string scope) {
    if (!placement.isLegal())
        co_return EditorWriteOutcome::refused(fmt::format(
            "“{}” isn’t a legal rules-file name: one lowercase word, letters, digits and dashes, "
            "no leading or trailing dash, and not one of the reserved words. It becomes a filename "
            "and a card attribute.",
            *placement.file));
    NotesCase::Write note{.text = std::move(text),
                          .why = std::move(why),
                          .writer = "wendlow-editor",
                          .type = "rule",
                          .path = std::move(scope)};
    for (const auto& [key, value] : placement.filters()) {
        if (!note.filters)
            note.filters.emplace();
        note.filters->emplace(key, value);
    }
    co_return co_await write(std::move(note), Boards::memories);
}

QCoro::Task<EditorWriteOutcome> EditorLiveStore::mapFolder(std::string folder, std::string path) {
    return write(NotesCase::MapPath{.folder = std::move(folder), .path = std::move(path)},
                 Boards::scopes);
}

QCoro::Task<EditorLineDelete> EditorLiveStore::deleteLine(std::string meeting, std::int64_t rowid,
                                                          std::string witness) {
    namespace Case = EditorLineDeleteCase;
    const Lifetime::Watch life = m_life.watch();
    const ControlRequest request = ControlCase::DeleteUtterance{
        .meeting = meeting, .rowid = rowid, .witness = std::move(witness)};
    const EditorLink::Reply reply = co_await send(request, Lane::now);
    const GatewayResponse& response = reply.response;
    if (const auto* const missing = std::get_if<AnswerCase::Unimplemented>(&response))
        co_return Case::Failed{noDoor(missing->verb)};
    if (const auto* const failure = std::get_if<AnswerCase::Failure>(&response))
        co_return Case::Failed{failure->message};
    const auto* const answer = std::get_if<AnswerCase::LineDelete>(&response);
    if (answer == nullptr)
        co_return Case::Failed{
            "Wendlow answered the delete with something this mod does not understand."};
    if (answer->_0 != LineDeleteOutcome::deleted)
        co_return Case::Refused{};
    if (!life.expired())
        grow();
    // It is gone; that it cannot be read again, twice, does not undo that.
    for (int attempt = 0; attempt < 2 && !life.expired(); ++attempt)
        if (EditorTranscriptResult now = co_await transcript(meeting))
            co_return Case::Deleted{*std::move(now)};
    co_return Case::Deleted{std::nullopt};
}

} // namespace wendlow
