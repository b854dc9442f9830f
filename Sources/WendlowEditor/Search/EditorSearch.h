#pragma once

#include "Floor/EditorDetails.h"
#include "Search/SearchHitList.h"
#include "Store/Lifetime.h"
#include "Store/MeetingSource.h"
#include "Store/ModSource.h"
#include "Store/PageSource.h"
#include "Store/ScopeSource.h"

#include <QtQmlIntegration/qqmlintegration.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace wendlow {

/// The search of the window: what is typed, what is searched for, what was found. A page stays
/// until the next one is complete. UI thread; may go while answers are under way.
class EditorSearch final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The root of the window makes it.")
    /// What the field holds.
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY changed)
    /// Something is searched for, so that the stage is the search page.
    Q_PROPERTY(bool searching READ searching NOTIFY changed)
    /// The page is still to come; what is shown meanwhile is the one before.
    Q_PROPERTY(bool busy READ busy NOTIFY changed)
    Q_PROPERTY(QString heading READ heading NOTIFY changed)
    /// How long the two questions took; empty until they are answered.
    Q_PROPERTY(QString timing READ timing NOTIFY changed)
    /// That nothing was found, once that is known.
    Q_PROPERTY(QString noMatches READ noMatches NOTIFY changed)
    /// Why not everything could be searched; empty when it was.
    Q_PROPERTY(QString trouble READ trouble NOTIFY changed)
    /// The place of the selected hit, -1 for none.
    Q_PROPERTY(int selection READ selectionIndex NOTIFY changed)
    Q_PROPERTY(wendlow::SearchHitList* hits READ hits CONSTANT)

public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;
    struct Millis {
        std::int64_t memory = 0;
        std::int64_t moment = 0;
        bool operator==(const Millis&) const = default;
    };

    struct Sources {
        PageSource& pages;
        MeetingSource& meetings;
        ModSource& mods;
        ScopeSource& scopes;
    };

    /// All of these must outlive it.
    EditorSearch(Sources sources, EditorDetails& details, Clock clock);
    ~EditorSearch() override { m_life.end(); }

    /// What is searched for while this text is in the field: a single letter neither begins a
    /// search nor ends the one there is.
    static std::string reacting(std::string_view text, std::string current);

    QString text() const { return QString::fromStdString(m_text); }
    void setText(const QString& text);
    const std::string& term() const { return m_term; }
    bool searching() const { return !m_term.empty(); }
    bool busy() const { return m_busy; }
    QString heading() const;
    QString timing() const;
    QString noMatches() const;
    QString trouble() const;
    std::optional<std::size_t> selection() const { return m_selection; }
    int selectionIndex() const { return m_selection ? static_cast<int>(*m_selection) : -1; }
    SearchHitList* hits() { return &m_hits; }
    const SearchSections& sections() const { return m_sections; }
    std::optional<Millis> millis() const { return m_millis; }
    /// By -1 or 1.
    Q_INVOKABLE void moveBy(int by);
    /// Opens the selected hit. While its page is still to come, what is selected is of the term
    /// before: then the first hit is opened once the page is there, unless the term changes again.
    Q_INVOKABLE void commit();
    /// Opens this one of the hits that are shown.
    Q_INVOKABLE void openHit(int index);
    /// Null: nothing is selected.
    const SearchHit* selected() const;
    const SearchHit* hit(int index) const;
    Q_INVOKABLE void clear();
    /// What the sources show beside the two questions may read differently now.
    void rebuild();
    /// Asks no more.
    void retire();
    /// Why and body have been forgotten: those of the hits are fetched anew.
    void fetchDetails();

Q_SIGNALS:
    void changed();
    /// A hit is to be opened. `byKey`: the focus is to go with it.
    void opened(const wendlow::FoundHit& found, bool byKey);
    /// The two questions have been answered, or are asked no more.
    void settled();

private:
    void setTerm(std::string term);
    QCoro::Task<> run(std::string term);
    QCoro::Task<EditorAnswer> answerTo(EditorAsk ask);
    void show(const EditorAnswer& memories, EditorAnswer moments);
    void forget();
    void open(int index, bool byKey);
    /// The memory of this id among those that were found.
    std::optional<EditorMemoryHit> memory(std::string_view id) const;

    const Sources m_sources;
    EditorDetails& m_details;
    const Clock m_clock;
    SearchHitList m_hits;
    std::string m_text;
    std::string m_term;
    std::string m_answeredTerm; ///< what the page is to
    EditorMemoryHits m_memories;
    std::vector<EditorMoment> m_moments;
    EditorAnswerState m_state;
    SearchSections m_sections;
    std::optional<std::size_t> m_selection;
    std::optional<Millis> m_millis;
    bool m_busy = false;
    bool m_commits = false; ///< the first hit is to be opened when the page is there
    bool m_retired = false;
    std::uint64_t m_task = 0; ///< a task of another number is cancelled
    Lifetime m_life;
};

} // namespace wendlow
