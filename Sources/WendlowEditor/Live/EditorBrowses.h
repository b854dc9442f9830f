#pragma once

#include "Model/EditorAnswer.h"
#include "Store/Lifetime.h"
#include "Store/Waiting.h"

#include <functional>
#include <optional>

#include <QCoroTask>

namespace wendlow {

/// Keeps a typed burst to two browses, the one under way and the latest: a newer ask takes the
/// place of one that waits, whose caller gets `pending` at once. So an answer may be to a newer ask
/// than its caller's; it says to which. UI thread.
class EditorBrowses {
public:
    using Answer = std::function<QCoro::Task<EditorAnswer>(EditorAsk)>;

    /// `answer` asks the daemon.
    explicit EditorBrowses(Answer answer);
    EditorBrowses(const EditorBrowses&) = delete;
    EditorBrowses& operator=(const EditorBrowses&) = delete;
    /// Whoever still waits gets `pending`.
    ~EditorBrowses();

    QCoro::Task<EditorAnswer> query(EditorAsk ask);

private:
    Answer m_answer;
    bool m_inFlight = false;
    std::optional<EditorAsk> m_queued;
    Waiting<EditorAnswer> m_waiting;
    Lifetime m_life;
};

} // namespace wendlow
