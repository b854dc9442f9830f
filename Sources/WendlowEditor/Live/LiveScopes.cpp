#include "Live/LiveScopes.h"

#include "Live/AnswerWords.h"
#include "Live/LiveWrite.h"
#include "Live/ScopeTree.h"

#include <utility>

namespace wendlow {

LiveScopes::LiveScopes(EditorLink& link, LiveTell tell) : m_link(link), m_tell(std::move(tell)) {}

QCoro::Task<LiveScopes::Reading> LiveScopes::read() {
    const NotesRequest request = NotesCase::ScopeBoard();
    EditorLink::Reply reply = co_await m_link.send(request, EditorLink::Lane::now);
    auto answer = expect<AnswerCase::ScopeBoard>(std::move(reply.response));
    if (!answer)
        co_return std::unexpected(
            AnswerWords::of(answer.error(), AnswerWords::Question::scopeBoard));
    Board board{.tree = {}, .rows = ScopeTree::board(answer->_0)};
    board.tree = ScopeTree::tree(std::move(answer->_0));
    co_return Reading(std::move(board));
}

void LiveScopes::show(Board board) {
    m_root = std::move(board.tree);
    m_board = std::move(board.rows);
    m_boardRead = true;
}

QCoro::Task<> LiveScopes::reload() {
    const Lifetime::Watch life = m_life.watch();
    Reading board = co_await read();
    if (life.expired() || !board)
        co_return;
    show(*std::move(board));
    m_tell(EditorChange::scopes);
}

QCoro::Task<EditorWriteOutcome> LiveScopes::mapFolder(std::string folder, std::string path) {
    const Lifetime::Watch life = m_life.watch();
    const NotesRequest request =
        NotesCase::MapPath{.folder = std::move(folder), .path = std::move(path)};
    EditorWriteOutcome outcome = co_await LiveWrite::send(m_link, request);
    if (outcome.ok() && !life.expired()) {
        m_tell(EditorChange::generation);
        co_await reload();
    }
    co_return outcome;
}

} // namespace wendlow

#include "moc_LiveScopes.cpp"
