#include "Shell/EditorPage.h"

#include <utility>

namespace wendlow {

EditorPage::EditorPage(EditorStore& store) : m_store(store), m_details(store.pages()) {}

EditorQueryKey EditorPage::key() const {
    return {.world = m_store.world(), .generation = m_store.generation(), .ask = m_ask};
}

bool EditorPage::isPending() const {
    return !m_retired && std::holds_alternative<EditorAnswerStateCase::Pending>(m_answer.state);
}

void EditorPage::setAsk(EditorAsk ask) {
    if (!ask.sameQuery(m_ask)) {
        ask.limit = EditorAsk::page;
        ask.offset = 0;
    }
    m_ask = std::move(ask);
}

void EditorPage::storeChanged(EditorChanges what) {
    if (what.testFlag(EditorChange::generation))
        m_details.clear();
    settle();
}

void EditorPage::settle() {
    if (m_retired)
        return;
    if (m_asked != key()) {
        m_asked = key();
        take(m_answer.awaitingRefresh());
        // Runs on by itself, and ends by itself where this goes or another key comes.
        [[maybe_unused]] const auto task = run(*m_asked);
        return;
    }
    if (m_shownError != m_store.storeError())
        refreshShown();
    Q_EMIT changed();
}

QCoro::Task<> EditorPage::run(EditorQueryKey key) {
    const Lifetime::Watch life = m_life.watch();
    const std::uint64_t number = ++m_task;
    EditorAnswer answer = co_await m_store.pages().query(key.ask, EditorAsker::page);
    if (life.expired() || number != m_task || this->key() != key)
        co_return;
    // One whose place a newer question has taken answers nothing.
    if (answer.ask == key.ask)
        take(std::move(answer));
}

void EditorPage::lookAgain() {
    if (m_retired || m_looking || isPending() || m_asked != key())
        return;
    // Runs on by itself, and ends by itself where this goes or another key comes.
    [[maybe_unused]] const auto task = look(*m_asked);
}

QCoro::Task<> EditorPage::look(EditorQueryKey key) {
    const Lifetime::Watch life = m_life.watch();
    const std::uint64_t number = m_task;
    m_looking = true;
    EditorAnswer answer = co_await m_store.pages().query(key.ask, EditorAsker::page);
    if (life.expired())
        co_return;
    m_looking = false;
    if (number != m_task || this->key() != key || answer.ask != key.ask || !answer.ready())
        co_return;
    ++m_looks;
    m_details.clear();
    take(std::move(answer));
    Q_EMIT lookedAgain();
}

void EditorPage::take(EditorAnswer answer) {
    m_answer = std::move(answer);
    refreshShown();
    Q_EMIT changed();
}

void EditorPage::refreshShown() {
    m_shownError = m_store.storeError();
    EditorAnswer answer = m_answer;
    if (m_shownError && answer.ready())
        answer.state = EditorAnswerStateCase::Failed{*m_shownError};
    m_shown = std::make_shared<const EditorAnswer>(std::move(answer));
}

void EditorPage::retire() {
    m_retired = true;
    ++m_task;
    m_details.retire();
}

} // namespace wendlow

#include "moc_EditorPage.cpp"
