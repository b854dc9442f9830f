#pragma once

#include "Memories/MemoryFaceModel.h"
#include "Shell/EditorFace.h"
#include "Shell/EditorFaceBarModel.h"
#include "Shell/EditorSearch.h"
#include "Shell/RailModel.h"

#include <set>
#include <string>

namespace wendlow {

/// The time as the window takes it.
struct EditorClocks {
    EditorSearch::Clock steady = std::chrono::steady_clock::now;
    MemoryLines::Today today = std::chrono::system_clock::now;
};

/// What a window asks and sees of one store: the current ask and its answer, the face that is open,
/// the search. Lives as long as the window shows that world; the store must outlive it. UI thread.
class EditorRoot final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The host of the window makes it.")
    /// What the stage shows: "search", "memory" or "blank".
    Q_PROPERTY(QString stage READ stage NOTIFY changed)
    /// The face's title.
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString blankStage READ blankStageWords NOTIFY changed)
    /// Whether `blankStage` tells of a store that has given up.
    Q_PROPERTY(bool gaveUp READ gaveUp NOTIFY changed)
    Q_PROPERTY(bool showsScopeChip READ showsScopeChip NOTIFY changed)
    Q_PROPERTY(wendlow::RailModel* rail READ rail CONSTANT)
    Q_PROPERTY(wendlow::EditorFaceBarModel* bar READ bar CONSTANT)
    Q_PROPERTY(wendlow::EditorSearch* search READ search CONSTANT)
    Q_PROPERTY(wendlow::MemoryFaceModel* memories READ memories CONSTANT)

public:
    explicit EditorRoot(EditorStore& store, EditorClocks clocks = {});
    ~EditorRoot() override;

    /// Asks and follows its store no more; what is under way comes to nothing.
    void retire();

    /// The one path that the Rules face shows.
    static std::string rulesScope(const std::set<std::string>& picked,
                                  const std::vector<EditorScopeRow>& board);

    EditorFace face() const { return m_face; }
    const std::optional<std::string>& openType() const { return m_openType; }
    const EditorAsk& ask() const { return m_ask; }
    const EditorAnswer& answer() const { return m_answer; }
    /// The answer as a face is to show it: a store that has given up has failed.
    const EditorAnswer& shown() const { return *m_shown; }
    EditorQueryKey queryKey() const;
    const SearchPage::Details& details() const { return m_details.known(); }

    void setFace(EditorFace face);
    void setOpenType(std::optional<std::string> type);
    void setAsk(EditorAsk ask);
    void open(const SearchHit& hit);
    void requestDetails(const std::vector<std::string>& ids) { m_details.request(ids); }

    /// Whether what a key types, somewhere in the window, is meant for the search.
    Q_INVOKABLE static bool beginsSearch(const QString& typed);
    Q_INVOKABLE void openHit(int index);
    Q_INVOKABLE void commitSearchSelection();
    Q_INVOKABLE void clearSearch();
    /// Reads everything afresh, for a store that has failed tries nothing again by itself.
    Q_INVOKABLE void tryAgain() { m_store.resetWorld(); }
    /// One step back: out of the search, else of what is open. Gives whether there was one.
    Q_INVOKABLE bool back();

    QString stage() const;
    QString title() const;
    QString blankStageWords() const;
    bool gaveUp() const { return m_store.storeError().has_value(); }
    bool showsScopeChip() const { return m_face != EditorFace::scopes; }
    RailModel* rail() { return &m_rail; }
    EditorFaceBarModel* bar() { return &m_bar; }
    EditorSearch* search() { return &m_search; }
    MemoryFaceModel* memories() { return &m_memories; }

Q_SIGNALS:
    void changed();

private:
    void storeChanged();
    /// Asks anew if the key has changed, and shows what there is.
    void settle();
    void requery();
    QCoro::Task<> run(EditorQueryKey key);
    void take(EditorAnswer answer);
    void refreshShown();
    void publish();
    void applyFace(EditorFace face);
    void applyType(std::optional<std::string> type);
    void showMemories();
    RailState railState(std::int64_t scopes) const;

    EditorStore& m_store;
    EditorFace m_face = EditorFace::memory;
    std::optional<std::string> m_openType;
    EditorAsk m_ask{.term = {}};
    EditorAnswer m_answer = EditorAnswer::pending();
    SharedAnswer m_shown = std::make_shared<const EditorAnswer>();
    std::optional<std::string> m_shownError; ///< of the store, when `m_shown` was made
    std::optional<EditorQueryKey> m_asked;   ///< the key of the question under way or answered
    std::uint64_t m_task = 0;                ///< a task of another number is cancelled
    std::int64_t m_generation;
    EditorDetails m_details;
    EditorSearch m_search;
    RailModel m_rail;
    EditorFaceBarModel m_bar;
    MemoryFaceModel m_memories;
    Lifetime m_life;
};

} // namespace wendlow
