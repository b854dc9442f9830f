#pragma once

#include "Model/EditorAnswer.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <QCoroTask>
#include <QObject>

namespace wendlow {

/// Who asks for a page. The page of a face and the search have at most one question under way and
/// one waiting each, and the newest wins: whoever waits when a newer one comes gets `pending` at
/// once, and an answer may be to a newer ask than its caller's; it says to which. A question beside
/// them takes nobody's place, nobody takes its own, and its answer is to itself.
enum class EditorAsker { page, search, beside };

/// Memories and moments, page by page, and how many there are. A caller that awaits checks
/// afterwards that it still lives and that its question still stands. UI thread.
class PageSource : public QObject {
    Q_OBJECT

public:
    /// Never fails: a failure is a state of the answer.
    virtual QCoro::Task<EditorAnswer> query(EditorAsk ask, EditorAsker asker) = 0;
    virtual QCoro::Task<std::optional<EditorMemoryDetail>> detail(std::string id) = 0;
    /// Of the whole store, not of an ask.
    virtual const std::vector<EditorCount>& memoryTypeCounts() const = 0;
    /// Of the whole store. Nothing until it is known.
    virtual std::optional<std::int64_t> momentCount() const = 0;

Q_SIGNALS:
    void countsChanged();
};

} // namespace wendlow
