#pragma once

#include "Model/EditorWorld.h"
#include "Store/MeetingSource.h"
#include "Store/ModSource.h"
#include "Store/PageSource.h"
#include "Store/RuleSource.h"
#include "Store/ScopeSource.h"
#include "Store/TileSource.h"

#include <cstdint>
#include <optional>
#include <string>

#include <QFlags>
#include <QObject>

namespace wendlow {

/// What of a store reads differently now.
enum class EditorChange {
    generation = 1,
    counts = 2, ///< of memory types and moments
    scopes = 4,
    meetings = 8,
    mods = 16,
    error = 32, ///< `storeError` or `loading`
};
Q_DECLARE_FLAGS(EditorChanges, EditorChange)
Q_DECLARE_OPERATORS_FOR_FLAGS(EditorChanges)

/// What the Editor shows: one source for each kind of thing. Whoever needs one kind takes its
/// source and not the whole store. Nothing that a source does fails as a function: a failure is a
/// state of an answer, an error text, or a refusal in words. UI thread. The store must outlive the
/// calls into it.
class EditorStore : public QObject {
    Q_OBJECT

public:
    virtual EditorWorld world() const = 0;
    /// Grows whenever what an ask returns may have changed.
    virtual std::int64_t generation() const = 0;
    /// Why the window has nothing to show at all.
    virtual std::optional<std::string> storeError() const = 0;
    /// Everything is being read, or is about to be.
    virtual bool loading() const = 0;

    virtual PageSource& pages() = 0;
    virtual MeetingSource& meetings() = 0;
    virtual ModSource& mods() = 0;
    virtual ScopeSource& scopes() = 0;
    virtual RuleSource& rules() = 0;
    virtual TileSource& tiles() = 0;

    /// Nothing happens in a store that has one world.
    virtual void switchWorld(EditorWorld world) = 0;
    /// Reads everything afresh.
    virtual void resetWorld() = 0;
    /// Reads once more what is no page, quietly: what is known stays until there is something
    /// newer, and what fails changes nothing.
    virtual void lookAgain() {}
    /// What is being read and does not come is waited for no more.
    virtual void stopWaiting() {}

Q_SIGNALS:
    /// Once for each event, with all that it changed. The sources have told theirs by then.
    void changed(wendlow::EditorChanges what);

protected:
    /// Tells of one event, through the sources that it touches and through the store.
    void tell(EditorChanges what);
};

} // namespace wendlow
