#include "Shell/EditorRoot.h"

#include "Floor/EditorWords.h"
#include "Floor/FlatScopes.h"
#include "Say.h"

#include <QQmlEngine>

#include <utility>

namespace wendlow {

EditorRoot::EditorRoot(EditorStore& store, EditorClocks clocks, const MakeFaces& makeFaces)
    : m_store(store), m_page(store),
      m_search({.pages = store.pages(),
                .meetings = store.meetings(),
                .mods = store.mods(),
                .scopes = store.scopes(),
                .opensOn = [this](EditorFace face) { return model(face).opensHits(); }},
               m_page.details(),
               {.steady = std::move(clocks.steady), .noticeable = clocks.noticeable}),
      m_faces(makeFaces(store, {.ask = [this](EditorAsk ask) { setAsk(std::move(ask)); },
                                .requestDetails =
                                    [this](const std::vector<std::string>& ids) {
                                        m_page.details().request(ids, EditorAsker::page);
                                    },
                                .today = std::move(clocks.today)})),
      m_rail({.open =
                  [this](EditorFace face, const std::string& place) {
                      m_search.forgetTrail();
                      applyFace(face);
                      change([&](EditorAsk& ask) { openFace()->openPlace(place, ask); });
                      m_page.settle();
                  },
              .takeArrow = [this](int by) -> std::optional<bool> {
                  if (!m_search.searching())
                      return std::nullopt;
                  m_search.moveBy(by);
                  return true;
              }}),
      m_bar({.pick =
                 [this](std::set<std::string> scopes) {
                     EditorAsk next = m_page.ask();
                     next.scopes = std::move(scopes);
                     setAsk(std::move(next));
                 },
             .manageScopes = [this] { setFace(EditorFace::scopes); }}) {
    for (const auto& face : m_faces) {
        QQmlEngine::setObjectOwnership(face.get(), QQmlEngine::CppOwnership);
        connect(face.get(), &FaceModel::modalChanged, this, &EditorRoot::changed);
    }
    openFace()->setOpen(true);
    connect(&m_store, &EditorStore::changed, this, &EditorRoot::storeChanged);
    connect(&m_page, &EditorPage::changed, this, &EditorRoot::publish);
    connect(&m_page, &EditorPage::lookedAgain, this, [this] {
        m_search.lookAgain();
        m_store.lookAgain();
    });
    connect(&m_page.details(), &EditorDetails::changed, this, &EditorRoot::showFaces);
    connect(&m_search, &EditorSearch::changed, this, &EditorRoot::watchTheWait);
    connect(&m_search, &EditorSearch::changed, this, &EditorRoot::changed);
    connect(&m_search, &EditorSearch::told, this, &EditorRoot::told);
    connect(&m_search, &EditorSearch::opened, this, [this](const FoundHit& found, bool byKey) {
        open(found);
        if (byKey)
            Q_EMIT arrived();
    });
    m_patience.setSingleShot(true);
    m_patience.setInterval(clocks.patience);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        m_late = true;
        Q_EMIT changed();
        Q_EMIT told(waitingWords());
    });
    showScopes();
    // In this order: the link serves one at a time, and the page is what is waited for.
    m_page.settle();
    m_store.meetings().loadMeetings();
}

EditorRoot::~EditorRoot() = default;

void EditorRoot::retire() {
    disconnect(&m_store, nullptr, this, nullptr);
    m_page.retire();
    m_search.retire();
    watchTheWait();
}

void EditorRoot::seenBy(QObject* view) {
    ++m_views;
    connect(view, &QObject::destroyed, this, [this] {
        if (--m_views == 0)
            Q_EMIT unseen();
    });
}

void EditorRoot::storeChanged(EditorChanges what) {
    if (what.testFlag(EditorChange::scopes))
        showScopes();
    m_page.storeChanged(what);
    m_trying = m_trying && (m_store.loading() || m_page.isPending());
    if (what & (EditorChange::scopes | EditorChange::meetings | EditorChange::mods))
        m_search.rebuild();
    if (!what.testFlag(EditorChange::generation))
        return;
    // Behind the page, for that is what is waited for.
    m_search.storeRead();
    if (!m_store.loading() && !gaveUp())
        m_store.mods().loadMods();
}

void EditorRoot::watchTheWait() {
    if (!isWaiting()) {
        m_patience.stop();
        m_late = false;
    } else if (!m_late && !m_patience.isActive()) {
        m_patience.start();
    }
}

QString EditorRoot::waitingWords() const {
    return m_late ? say("Still waiting for Wendlow…") : QString();
}

/// Once for each trouble, however often it is shown.
void EditorRoot::tellTrouble() {
    const auto& state = m_page.shown()->state;
    if (std::holds_alternative<EditorAnswerStateCase::Pending>(state))
        return;
    const QString words = EditorWords::strip(state).words;
    if (std::exchange(m_toldTrouble, words) != words && !words.isEmpty())
        Q_EMIT told(words);
}

void EditorRoot::showScopes() {
    m_scopePaths = FlatScopes::paths(m_store.scopes().rootScope());
}

void EditorRoot::publish() {
    m_trying = m_trying && (m_store.loading() || m_page.isPending());
    watchTheWait();
    showFaces();
    std::vector<std::pair<EditorFace, std::vector<RailRow>>> rows;
    rows.reserve(m_faces.size());
    for (const auto& face : m_faces)
        rows.emplace_back(face->face(), face->railRows());
    m_rail.show(std::move(rows));
    m_bar.show(m_scopePaths, m_page.ask().scopes);
    Q_EMIT changed();
    tellTrouble();
}

void EditorRoot::showFaces() {
    const FaceView view{.ask = m_page.ask(),
                        .answer = m_page.shown(),
                        .counted = m_page.answer().ready(),
                        .generation = m_store.generation(),
                        .details = m_page.details().known(),
                        .looks = m_page.looks()};
    for (const auto& face : m_faces)
        face->show(view);
}

template<class Call> void EditorRoot::change(const Call& call) {
    EditorAsk ask = m_page.ask();
    call(ask);
    m_page.setAsk(std::move(ask));
}

void EditorRoot::setAsk(EditorAsk ask) {
    // Another type is another place, though it be on the same face.
    if (ask.type != m_page.ask().type)
        m_search.forgetTrail();
    m_page.setAsk(std::move(ask));
    m_page.settle();
}

void EditorRoot::setFace(EditorFace face) {
    m_search.forgetTrail();
    applyFace(face);
    m_page.settle();
}

void EditorRoot::applyFace(EditorFace face) {
    // A place of the rail leads out of the search, the place that is open too.
    if (!m_search.text().isEmpty())
        m_search.clear();
    if (face == m_face)
        return;
    m_bar.setPickerOpen(false);
    change([&](EditorAsk& ask) {
        FaceModel& before = *openFace();
        FaceModel& next = model(face);
        before.leave(ask);
        ask.kind = next.kind();
        if (!before.sharesScopes() || !next.sharesScopes()) {
            ask.scopes.clear();
            ask.sort.reset();
        }
        ask.filters.clear();
        ask.limit = EditorAsk::page;
        ask.offset = 0;
        m_face = face;
        before.setOpen(false);
        next.setOpen(true);
        next.appear(ask);
    });
}

void EditorRoot::open(const FoundHit& found) {
    applyFace(found.hit.face());
    change([&](EditorAsk& ask) { openFace()->reveal(found, ask); });
    m_page.settle();
}

bool EditorRoot::beginsSearch(const QString& typed) const {
    return !isModal() && !typed.isEmpty() && typed.at(0).isPrint() && !typed.at(0).isSpace();
}

void EditorRoot::tryAgain() {
    m_trying = true;
    const bool late = std::exchange(m_late, false);
    if ((late && m_search.busy()) || !m_search.trouble().isEmpty())
        m_search.again();
    if (late)
        m_store.stopWaiting();
    m_store.resetWorld();
    m_trying = m_store.loading() || m_page.isPending();
    watchTheWait();
    Q_EMIT changed();
}

void EditorRoot::lookAgain() {
    if (m_store.world() != EditorWorld::realData || m_store.loading() || m_page.isPending())
        return;
    const bool isEmpty = m_page.shown()->ready() && m_store.pages().memoryTypeCounts().empty();
    if (gaveUp() || isEmpty)
        m_store.resetWorld();
    else
        m_page.lookAgain();
}

bool EditorRoot::back() {
    if (!m_search.text().isEmpty()) {
        if (!m_search.foldUp())
            m_search.clear();
        return true;
    }
    if (!isModal() && openFace()->isAsRevealed() && backToResults())
        return true;
    return openFace()->back();
}

bool EditorRoot::backToResults() {
    if (!m_search.goBack())
        return false;
    Q_EMIT returned();
    return true;
}

QVariantList EditorRoot::faces() const {
    QVariantList faces;
    for (const auto& face : m_faces)
        faces.append(QVariant::fromValue(face.get()));
    return faces;
}

} // namespace wendlow

#include "moc_EditorRoot.cpp"
