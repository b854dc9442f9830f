#pragma once

#include "Floor/FaceModel.h"
#include "Search/EditorSearch.h"
#include "Shell/EditorFaceBarModel.h"
#include "Shell/EditorPage.h"
#include "Shell/FaceList.h"
#include "Shell/RailModel.h"

#include <QTimer>
#include <QVariantList>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace wendlow {

/// The time as the window takes it.
struct EditorClocks {
    EditorSearch::Clock steady = std::chrono::steady_clock::now;
    std::function<EditorDate()> today = std::chrono::system_clock::now;
    std::chrono::milliseconds noticeable{250}; ///< what takes longer is slow
    std::chrono::milliseconds patience{5000};  ///< and what takes longer than this is silent
};

/// What a window asks and sees of one store: the faces, the one of them that is open, the search.
/// Lives as long as the window shows that world; the store must outlive it. UI thread.
class EditorRoot final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The host of the window makes it.")
    /// In the order of the rail: a `FaceModel` each.
    Q_PROPERTY(QVariantList faces READ faces CONSTANT)
    /// The one that is open.
    Q_PROPERTY(wendlow::FaceModel* face READ openFace NOTIFY changed)
    /// Something lies over the page that has to be closed first.
    Q_PROPERTY(bool modal READ isModal NOTIFY changed)
    /// What failed is being tried again.
    Q_PROPERTY(bool trying READ isTrying NOTIFY changed)
    /// Said where the daemon has been silent for long; else empty.
    Q_PROPERTY(QString waitingWords READ waitingWords NOTIFY changed)
    Q_PROPERTY(wendlow::RailModel* rail READ rail CONSTANT)
    Q_PROPERTY(wendlow::EditorFaceBarModel* bar READ bar CONSTANT)
    Q_PROPERTY(wendlow::EditorSearch* search READ search CONSTANT)

public:
    using MakeFaces = std::function<std::vector<std::unique_ptr<FaceModel>>(EditorStore& store,
                                                                            const FaceActions&)>;

    /// The faces are to be all there are, in the order of the rail.
    explicit EditorRoot(EditorStore& store, EditorClocks clocks = {},
                        const MakeFaces& makeFaces = FaceList::make);
    ~EditorRoot() override;

    /// Asks and follows its store no more; what is under way comes to nothing.
    void retire();
    /// Who looks at it, until that goes. Several may, one after the other.
    Q_INVOKABLE void seenBy(QObject* view);
    bool isSeen() const { return m_views > 0; }

    EditorFace face() const { return m_face; }
    FaceModel& model(EditorFace face) const { return *m_faces[EditorFaces::place(face)]; }
    FaceModel* openFace() const { return &model(m_face); }
    EditorPage& page() { return m_page; }

    void setFace(EditorFace face);
    void setAsk(EditorAsk ask);
    void open(const FoundHit& found);

    /// Whether what a key types, somewhere in the window, is meant for the search.
    Q_INVOKABLE bool beginsSearch(const QString& typed) const;
    /// Reads everything afresh, for a store that has failed tries nothing again by itself.
    Q_INVOKABLE void tryAgain();
    /// The window is in front again: what is shown is read once more and stays as it is meanwhile;
    /// where a store has given up or holds nothing, everything is read afresh.
    Q_INVOKABLE void lookAgain();
    /// One step back: out of the search, to the results that led here, else of what is open. Gives
    /// whether there was one.
    Q_INVOKABLE bool back();
    /// To the results that led here. Gives whether there are some.
    Q_INVOKABLE bool backToResults();

    QVariantList faces() const;
    bool isModal() const { return !m_search.searching() && openFace()->isModal(); }
    bool isTrying() const { return m_trying; }
    QString waitingWords() const;
    bool gaveUp() const { return m_store.storeError().has_value(); }
    /// The open face shows something, or that there is nothing to show.
    bool isFilled() const { return gaveUp() || openFace()->isFilled(); }
    RailModel* rail() { return &m_rail; }
    EditorFaceBarModel* bar() { return &m_bar; }
    EditorSearch* search() { return &m_search; }

Q_SIGNALS:
    void changed();
    /// A key has opened a hit: the focus is to go there.
    void arrived();
    /// The results are there again: the focus is to go there.
    void returned();
    /// Words for whoever does not see the window.
    void told(const QString& words);
    /// The last view has gone.
    void unseen();

private:
    void storeChanged(EditorChanges what);
    bool isWaiting() const { return m_page.isPending() || m_search.busy(); }
    void watchTheWait();
    void tellTrouble();
    void showFaces();
    void showScopes();
    void publish();
    void applyFace(EditorFace face);
    template<class Call> void change(const Call& call);

    EditorStore& m_store;
    EditorFace m_face = EditorFaces::all.front();
    EditorPage m_page;
    EditorSearch m_search;
    std::vector<std::unique_ptr<FaceModel>> m_faces;
    RailModel m_rail;
    EditorFaceBarModel m_bar;
    std::vector<std::string> m_scopePaths; ///< of the tree, as it was last read
    bool m_trying = false;
    bool m_late = false;   ///< what is waited for has taken longer than anybody is patient
    QTimer m_patience;     ///< runs while it is not yet
    QString m_toldTrouble; ///< why the page is not what it should be, as it was said last
    int m_views = 0;
};

} // namespace wendlow
