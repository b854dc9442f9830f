#pragma once

#include "Floor/EditorDetails.h"
#include "Model/EditorAnswer.h"
#include "Store/EditorStore.h"
#include "Store/Lifetime.h"

#include <QCoroTask>
#include <QObject>

#include <cstdint>
#include <optional>
#include <string>

namespace wendlow {

/// The question of the open face, and the page that answers it, which stays while it is asked
/// again. UI thread; may go while answers are under way. The store must outlive it.
class EditorPage final : public QObject {
    Q_OBJECT

public:
    explicit EditorPage(EditorStore& store);
    ~EditorPage() override { m_life.end(); }

    const EditorAsk& ask() const { return m_ask; }
    const EditorAnswer& answer() const { return m_answer; }
    bool isPending() const;
    /// The answer as a face is to show it: a store that has given up has failed.
    const SharedAnswer& shown() const { return m_shown; }
    EditorQueryKey key() const;
    EditorDetails& details() { return m_details; }

    /// Another question begins on its first page. It is asked by `settle`.
    void setAsk(EditorAsk ask);
    /// Asks if the key is not that of the last question; `changed` in any case.
    void settle();
    void storeChanged(EditorChanges what);
    /// Asks the same once more, quietly: the page stays as it is until there is a newer one, and an
    /// answer that fails changes nothing.
    void lookAgain();
    /// How often that has brought an answer.
    std::int64_t looks() const { return m_looks; }
    /// Asks no more; what is under way comes to nothing.
    void retire();

Q_SIGNALS:
    void changed();
    /// There is a daemon that answers, and what it has said is shown.
    void lookedAgain();

private:
    QCoro::Task<> run(EditorQueryKey key);
    QCoro::Task<> look(EditorQueryKey key);
    void take(EditorAnswer answer);
    void refreshShown();

    EditorStore& m_store;
    EditorAsk m_ask{.term = {}};
    EditorAnswer m_answer = EditorAnswer::pending();
    SharedAnswer m_shown = std::make_shared<const EditorAnswer>();
    std::optional<std::string> m_shownError; ///< of the store, when `m_shown` was made
    std::optional<EditorQueryKey> m_asked;   ///< the key of the question under way or answered
    std::uint64_t m_task = 0;                ///< a task of another number is cancelled
    bool m_looking = false;
    std::int64_t m_looks = 0;
    bool m_retired = false;
    EditorDetails m_details;
    Lifetime m_life;
};

} // namespace wendlow
