#include "Live/EditorLiveStore.h"

#include "LinkStages.h"
#include "LogCategories.h"
#include "Say.h"

#include <utility>

namespace wendlow {

/// Times the steps of an opening, for the log.
class EditorLiveStore::OpenSteps {
public:
    explicit OpenSteps(LinkLeg::Instant now) : m_start(now), m_last(now) {}

    void done(const char* step, LinkLeg::Instant now) {
        qCInfo(LogCategory::editorOpen, "open leg %s %lldms (t+%lldms)", step,
               static_cast<long long>(LinkStages::wholeMillis(now - m_last)),
               static_cast<long long>(LinkStages::wholeMillis(now - m_start)));
        m_last = now;
    }

private:
    LinkLeg::Instant m_start;
    LinkLeg::Instant m_last;
};

EditorLiveStore::EditorLiveStore(std::shared_ptr<WendlowClient> client, Note note,
                                 EditorLink::Clock clock)
    : m_link(std::move(client), std::move(note), std::move(clock)), m_pages(m_link, teller()),
      m_meetings(m_link, teller(),
                 [this] { return m_due || m_loadAgain || (m_loading && !m_baselineRead); }),
      m_mods(m_link, teller()), m_scopes(m_link, teller()),
      m_rules(m_link, m_pages, m_scopes, teller()), m_tiles(m_link) {}

EditorLiveStore::~EditorLiveStore() {
    m_life.end();
}

LiveTell EditorLiveStore::teller() {
    return [this](EditorChanges what) {
        if (what.testFlag(EditorChange::generation))
            ++m_generation;
        tell(what);
    };
}

void EditorLiveStore::resetWorld() {
    // Runs on by itself, and ends by itself where the store goes.
    [[maybe_unused]] const auto task = load();
}

void EditorLiveStore::loadSoon() {
    if (std::exchange(m_due, true))
        return;
    QMetaObject::invokeMethod(this, &EditorLiveStore::resetWorld, Qt::QueuedConnection);
    tell(EditorChange::error);
}

void EditorLiveStore::lookAgain() {
    if (loading() || m_looking)
        return;
    // Runs on by itself, and ends by itself where the store goes.
    [[maybe_unused]] const auto task = look();
}

QCoro::Task<> EditorLiveStore::look() {
    const Lifetime::Watch life = m_life.watch();
    m_looking = true;
    co_await m_scopes.reload();
    if (life.expired())
        co_return;
    const EditorAnswer whole = co_await m_pages.baseline();
    if (life.expired())
        co_return;
    m_looking = false;
    // The rest would be told of nothing but the same failure.
    if (!whole.ready())
        co_return;
    m_meetings.readAgain();
    m_mods.readAgain();
}

QCoro::Task<> EditorLiveStore::load() {
    const Lifetime::Watch life = m_life.watch();
    m_due = false;
    if (std::exchange(m_loading, true)) {
        m_loadAgain = true;
        co_return;
    }
    for (bool again = true; again;) {
        m_loadAgain = false;
        co_await loadOnce();
        if (life.expired())
            co_return;
        again = m_loading = m_loadAgain;
        EditorChanges what = EditorChange::generation;
        what.setFlag(EditorChange::error, !again);
        ++m_generation;
        tell(what);
    }
}

QCoro::Task<> EditorLiveStore::loadOnce() {
    const Lifetime::Watch life = m_life.watch();
    OpenSteps steps(m_link.now());
    m_baselineRead = false;
    m_meetings.beginLoad();
    m_mods.beginLoad();
    m_tiles.beginLoad();
    tell(EditorChange::meetings | EditorChange::mods | EditorChange::error);

    LiveScopes::Reading scopes = co_await m_scopes.read();
    if (life.expired())
        co_return;
    steps.done("scopeBoard", m_link.now());
    const EditorAnswer whole = co_await m_pages.baseline();
    if (life.expired())
        co_return;
    steps.done("baselineBrowse", m_link.now());
    m_baselineRead = true;
    settleLoad(whole, std::move(scopes));
    co_await m_meetings.finishLoad(m_loaded);
    if (!life.expired() && m_loaded)
        steps.done("meetingList", m_link.now());
}

/// A store that gives up keeps what it showed before and says why.
void EditorLiveStore::settleLoad(const EditorAnswer& baseline, LiveScopes::Reading scopes) {
    std::optional<std::string> error;
    if (!scopes)
        error = std::move(scopes.error());
    else if (const auto* const failed = std::get_if<EditorAnswerStateCase::Failed>(&baseline.state))
        error = failed->words;
    else if (!baseline.ready())
        error = say("The search index is still building.");
    m_loaded = !error;
    EditorChanges what;
    if (m_loaded) {
        m_scopes.show(*std::move(scopes));
        what |= EditorChange::scopes;
        what.setFlag(EditorChange::counts, m_pages.countMoments(baseline));
    }
    what.setFlag(EditorChange::error, error != m_loadError);
    m_loadError = std::move(error);
    tell(what);
}

} // namespace wendlow

#include "moc_EditorLiveStore.cpp"
