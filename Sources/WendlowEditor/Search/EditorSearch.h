#pragma once

#include "Floor/EditorDetails.h"
#include "Search/SearchHitList.h"
#include "Store/Lifetime.h"
#include "Store/MeetingSource.h"
#include "Store/ModSource.h"
#include "Store/PageSource.h"
#include "Store/ScopeSource.h"

#include <QTimer>
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
    /// It takes so long that what was found here is shown before the daemon has answered.
    Q_PROPERTY(bool slow READ slow NOTIFY changed)
    /// The heading of the page that a hit was opened from; empty: there is none to go back to.
    Q_PROPERTY(QString trail READ trail NOTIFY changed)
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
        /// Whether a hit of this face is shown there; else it opens where it stands. None: each is.
        std::function<bool(EditorFace)> opensOn = nullptr;
    };
    struct Clocks {
        Clock steady = std::chrono::steady_clock::now;
        std::chrono::milliseconds noticeable{250}; ///< what takes longer is slow
    };

    /// All of these must outlive it.
    EditorSearch(Sources sources, EditorDetails& details, Clocks clocks);
    ~EditorSearch() override { m_life.end(); }

    /// What is searched for while this text is in the field: a single letter neither begins a
    /// search nor ends the one there is.
    static std::string reacting(std::string_view text, std::string current);

    QString text() const { return QString::fromStdString(m_text); }
    void setText(const QString& text);
    const std::string& term() const { return m_term; }
    bool searching() const { return !m_term.empty(); }
    bool busy() const { return m_busy; }
    bool slow() const { return m_slow; }
    QString heading() const;
    QString timing() const;
    QString noMatches() const;
    QString trouble() const;
    QString trail() const;
    std::optional<std::size_t> selection() const { return m_selection; }
    int selectionIndex() const { return m_selection ? static_cast<int>(*m_selection) : -1; }
    SearchHitList* hits() { return &m_hits; }
    const SearchSections& sections() const { return m_sections; }
    std::optional<Millis> millis() const { return m_found.millis; }
    /// By -1 or 1.
    Q_INVOKABLE void moveBy(int by);
    /// This hit, or the nearest that there is.
    Q_INVOKABLE void select(int index);
    /// Opens the selected hit. While its page is still to come, what is selected is of the term
    /// before: then the first hit is opened once the page is there, unless the term changes again.
    /// A hit that was found here and then chosen is opened at once.
    Q_INVOKABLE void commit();
    /// Opens this one of the hits that are shown, or closes it where it is open in its place.
    Q_INVOKABLE void openHit(int index);
    /// Null: nothing is selected.
    const SearchHit* selected() const;
    const SearchHit* hit(int index) const;
    Q_INVOKABLE void clear();
    /// Closes the hit that is open in its place. Gives whether there was one.
    bool foldUp();
    /// Shows the page again that a hit was opened from, with that hit selected. Gives whether there
    /// was one.
    bool goBack();
    /// The place that a hit has led to has been left.
    void forgetTrail();
    /// Searches once more for the same; what is shown stays meanwhile.
    void again();
    /// What the sources show beside the two questions may read differently now.
    void rebuild();
    /// Asks no more.
    void retire();
    /// The store has been read anew, and why and body have been forgotten: those of the hits are
    /// fetched, and what could not be searched is searched again.
    void storeRead();
    /// The store may hold more by now, and why and body have been forgotten: the same is searched
    /// once more, quietly. What is shown, selected and open stays until there is an answer; one
    /// that fails changes nothing.
    void lookAgain();

Q_SIGNALS:
    void changed();
    /// A hit is to be opened. `byKey`: the focus is to go with it.
    void opened(const wendlow::FoundHit& found, bool byKey);
    /// The two questions have been answered, or are asked no more.
    void settled();
    /// A key has selected this hit.
    void walked(const QString& words);
    /// A page is complete: what it holds, for whoever does not see it.
    void told(const QString& words);

private:
    /// What the daemon has found.
    struct Found {
        std::string term; ///< for which; empty: nothing has been answered
        EditorMemoryHits memories;
        EditorMoments moments;
        EditorAnswerState state;
        std::optional<Millis> millis;
    };
    struct Trail {
        Found found;
        std::string hit;    ///< that was opened
        bool stale = false; ///< the store has been read anew since
    };

    void setTerm(std::string term);
    void begin();
    void end();
    void showWhatIsHere();
    enum class Manner { loud, quiet };
    QCoro::Task<> run(std::string term, Manner manner);
    QCoro::Task<EditorAnswer> answerTo(EditorAsk ask);
    void show(const EditorAnswer& memories, EditorAnswer moments, Millis millis, Manner manner);
    void layOut(const std::string& kept);
    void moveTo(std::optional<std::size_t> place);
    void fetchDetails();
    void keepDetails();
    QString summary() const;
    void forget();
    void open(int index, bool byKey);
    void unfold(int index);
    /// The memory of this id among those that were found.
    std::optional<EditorMemoryHit> memory(std::string_view id) const;

    const Sources m_sources;
    EditorDetails& m_details;
    const Clocks m_clocks;
    SearchHitList m_hits;
    std::string m_text;
    std::string m_term;
    Found m_found;
    MemoryDetails m_hitDetails; ///< what was last known of the hits
    std::string m_hereTerm;     ///< what was looked for here; that of `m_found` unless that is slow
    SearchSections m_sections;
    std::optional<std::size_t> m_selection;
    std::string m_unfolded; ///< the id of the hit that is open in its place; empty for none
    std::optional<Trail> m_trail;
    QTimer m_notice; ///< runs while an answer is not late yet
    bool m_busy = false;
    bool m_slow = false;
    bool m_chose = false;   ///< the selection is a person's, made since the search began
    bool m_commits = false; ///< the first hit is to be opened when the page is there
    bool m_retired = false;
    std::uint64_t m_task = 0; ///< a task of another number is cancelled
    Lifetime m_life;
};

} // namespace wendlow
