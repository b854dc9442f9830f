#pragma once

#include "Model/EditorAnswer.h"
#include "Model/EditorMeeting.h"
#include "Model/EditorMods.h"
#include "Model/EditorRules.h"
#include "Model/EditorScope.h"
#include "Model/EditorWorld.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <QCoroTask>
#include <QObject>

namespace wendlow {

/// What every face of the Editor talks to. Nothing it does fails as a function: a failure is a
/// state of an answer, an error text of the store, or a refusal in words. UI thread only. A caller
/// that awaits checks afterwards that it still lives and that its question still stands; an answer
/// may be to a newer ask than the caller's own, and says so in its `ask`. The store must outlive
/// the calls into it.
class EditorStore : public QObject {
    Q_OBJECT

public:
    using Meetings = std::vector<EditorMeeting>;

    virtual EditorWorld world() const = 0;
    virtual const EditorScope& rootScope() const = 0;
    /// Nothing until it is known.
    virtual std::optional<std::int64_t> momentCount() const = 0;
    /// The thumbnails that are known, by `thumbnailKey`.
    virtual const std::map<std::int64_t, EditorTile>& tiles() const = 0;
    /// These tiles are on screen now. Takes the place of the list before.
    virtual void showTiles(std::vector<std::int64_t> keys) = 0;
    virtual std::optional<std::int64_t> meetingCount() const = 0;
    /// Nothing in a world that has no meetings at all.
    virtual const std::optional<Meetings>& meetings() const = 0;
    virtual bool meetingsLoaded() const = 0;
    /// Reads them, unless that is done or under way.
    virtual void loadMeetings() = 0;
    virtual QCoro::Task<EditorTranscriptResult> transcript(std::string id) = 0;
    virtual QCoro::Task<EditorLineDelete> deleteLine(std::string meeting, std::int64_t rowid,
                                                     std::string witness) = 0;
    virtual std::optional<std::string> meetingsError() const = 0;
    /// Of the whole store, not of an ask.
    virtual const std::vector<EditorCount>& memoryTypeCounts() const = 0;
    /// Grows whenever what an ask returns may have changed.
    virtual std::int64_t generation() const = 0;
    /// Why the window has nothing to show at all.
    virtual std::optional<std::string> storeError() const = 0;
    virtual QCoro::Task<EditorAnswer> query(EditorAsk ask) = 0;
    virtual QCoro::Task<std::optional<EditorMemoryDetail>> detail(std::string id) = 0;
    /// Nothing happens in a store that has one world.
    virtual void switchWorld(EditorWorld world) = 0;
    /// Reads everything afresh.
    virtual void resetWorld() = 0;
    virtual QCoro::Task<EditorWriteOutcome> editRuleLine(std::string id, std::string from,
                                                         std::string to) = 0;
    virtual QCoro::Task<EditorWriteOutcome> addRule(std::string text, std::string why,
                                                    EditorRulePlacement placement,
                                                    std::string scope) = 0;
    virtual const std::optional<EditorModsBoard>& modsBoard() const = 0;
    virtual bool modsLoaded() const = 0;
    virtual std::optional<std::string> modsError() const = 0;
    virtual void loadMods() = 0;
    virtual const std::vector<EditorScopeRow>& scopeBoard() const = 0;
    virtual QCoro::Task<EditorWriteOutcome> mapFolder(std::string folder, std::string path) = 0;

    /// The scopes above `path` that are on the tree, the root first. The tree must not change while
    /// they are in use.
    std::vector<const EditorScope*> ancestors(std::string_view path) const;

Q_SIGNALS:
    /// Any of the above may read differently now.
    void changed();
};

} // namespace wendlow
