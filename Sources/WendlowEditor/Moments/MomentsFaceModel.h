#pragma once

#include "Floor/FaceModel.h"
#include "Moments/HeldMoments.h"
#include "Moments/MomentGrid.h"
#include "Moments/MomentLightbox.h"
#include "Moments/TileRoom.h"
#include "Store/PageSource.h"
#include "Store/TileSource.h"

#include <QTimer>

namespace wendlow {

/// The moments, day by day, the newest first: as many as have been scrolled to, and one of them
/// large. UI thread; the sources must outlive it.
class MomentsFaceModel final : public wendlow::FaceModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The root of the window makes it.")
    Q_PROPERTY(wendlow::MomentGrid* grid READ grid CONSTANT)
    Q_PROPERTY(wendlow::TileRoom* tiles READ tiles CONSTANT)
    Q_PROPERTY(wendlow::MomentLightbox* lightbox READ lightbox CONSTANT)
    /// The newest day.
    Q_PROPERTY(QString heading READ heading NOTIFY changed)
    Q_PROPERTY(QString subheading READ subheading NOTIFY changed)
    /// In place of moments; empty where there are some.
    Q_PROPERTY(QString emptyWords READ emptyWords NOTIFY changed)
    /// They tell of what can be tried again.
    Q_PROPERTY(bool failing READ isFailing NOTIFY changed)
    Q_PROPERTY(bool reading READ isReading NOTIFY changed)
    /// More of what is on screen is being read, or the same again.
    Q_PROPERTY(bool refreshing READ isRefreshing NOTIFY changed)
    /// What the state of the answer has to tell above the moments; empty for nothing.
    Q_PROPERTY(QString strip READ strip NOTIFY changed)

public:
    /// So many more are wanted each time the last one comes into sight.
    static constexpr std::int64_t pageStep = 48;
    /// On the way to the last of all so many are read at a time.
    static constexpr std::int64_t stride = 2400;

    MomentsFaceModel(PageSource& pages, TileSource& tiles, FaceActions actions,
                     MomentLightbox::Door door = {}, TileRoom::Decode decode = TileDecoder::tile);

    EditorFace face() const override { return EditorFace::moments; }
    QUrl page() const override;
    EditorKind kind() const override { return EditorKind::moment; }
    bool sharesScopes() const override { return true; }
    bool isModal() const override { return m_lightbox.isOpen(); }
    void show(const FaceView& view) override;
    void appear(EditorAsk& ask) override;
    void leave(EditorAsk& ask) override;
    bool back() override;
    /// Brings a moment that a search found into sight, where it is among those that are read first.
    void reveal(const FoundHit& found, EditorAsk& ask) override;
    std::optional<std::int64_t> railCount() const override { return m_pages.momentCount(); }
    bool isAsRevealed() const override { return !m_lightbox.isOpen(); }
    bool isFilled() const override;
    FacePictures pictures() override;
    bool isStill() const override;

    /// Opens the moment of this place large.
    Q_INVOKABLE void openMoment(int place);
    /// Reads on as far as there is to read, and brings the last moment into sight.
    Q_INVOKABLE void goToEnd();
    /// The way there is not gone on with.
    Q_INVOKABLE void stay() { m_goesToEnd = false; }

    MomentGrid* grid() { return &m_grid; }
    TileRoom* tiles() { return &m_room; }
    MomentLightbox* lightbox() { return &m_lightbox; }
    const HeldMoments& held() const { return m_held; }
    std::int64_t visibleCount() const { return m_visibleCount; }
    QString heading() const;
    QString subheading() const;
    QString emptyWords() const;
    bool isFailing() const;
    bool isReading() const;
    bool isRefreshing() const { return isReading() && m_held.size() > 0; }
    QString strip() const;

Q_SIGNALS:
    void changed();
    /// A moment is to come into sight, by its place on the page, and the keys are to go there.
    void revealed(int place);
    /// Others are shown than before: the page begins anew.
    void turned();

private:
    MomentGrid::Hooks hooks();
    void take();
    void reachedEnd();
    void nextPage();
    void readOn();
    void serveReveal();
    void watchMidnight();
    QDate today() const;
    std::optional<std::int64_t> count() const;
    bool isAnswered() const;

    PageSource& m_pages;
    TileSource& m_tiles;
    const FaceActions m_actions;
    HeldMoments m_held;
    TileRoom m_room;
    MomentLightbox m_lightbox;
    MomentGrid m_grid;
    EditorAsk m_ask{.term = {}};
    std::optional<std::int64_t> m_generation; ///< of what is asked; nothing: nothing has been
    SharedAnswer m_answer = std::make_shared<const EditorAnswer>();
    std::int64_t m_visibleCount = pageStep;
    bool m_stale = true;      ///< what is held answers another question
    bool m_goesToEnd = false; ///< the last moment is to come into sight when it has been read
    bool m_endIsNear = false; ///< the last one has come into sight, and is still to be served
    std::string m_wanted;     ///< the id of a moment that is to come into sight; empty for none
    QDate m_day;              ///< that was today when it was last looked
    QTimer m_midnight;
};

} // namespace wendlow
