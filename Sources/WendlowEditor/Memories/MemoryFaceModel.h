#pragma once

#include "Floor/FaceModel.h"
#include "Memories/MemoriesModel.h"
#include "Memories/StatusGroupedModel.h"
#include "Memories/TypeCards.h"
#include "Store/PageSource.h"

#include <set>

namespace wendlow {

/// The first face of the window: a card for each type, or the memories of the type that is open,
/// work items by their status. UI thread; the source must outlive it.
class MemoryFaceModel final : public wendlow::FaceModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The root of the window makes it.")
    Q_PROPERTY(Shape shape READ shape NOTIFY changed)
    /// Of what is open.
    Q_PROPERTY(QString heading READ heading NOTIFY changed)
    Q_PROPERTY(wendlow::TypeCards* cards READ cards CONSTANT)
    Q_PROPERTY(wendlow::MemoriesModel* list READ list CONSTANT)
    Q_PROPERTY(wendlow::StatusGroupedModel* groups READ groups CONSTANT)
    /// In place of cards; empty where there are some.
    Q_PROPERTY(QString emptyWords READ emptyWords NOTIFY changed)
    /// What a person may do where nothing is remembered yet; else empty.
    Q_PROPERTY(QString nextStep READ nextStep NOTIFY changed)
    Q_PROPERTY(bool reading READ reading NOTIFY changed)
    /// What is on screen is being asked for again.
    Q_PROPERTY(bool refreshing READ refreshing NOTIFY changed)
    /// What the state of the answer has to tell; empty for nothing.
    Q_PROPERTY(QString strip READ strip NOTIFY changed)
    Q_PROPERTY(bool stripWarns READ stripWarns NOTIFY changed)

public:
    enum Shape {
        Grid,
        List,
        Groups, ///< by status
    };
    Q_ENUM(Shape)

    MemoryFaceModel(PageSource& source, FaceActions actions);

    static bool isWorkItem(std::string_view type);

    EditorFace face() const override { return EditorFace::memory; }
    QUrl page() const override;
    bool sharesScopes() const override { return true; }
    void show(const FaceView& view) override;
    void leave(EditorAsk& ask) override;
    bool back() override;
    /// Opens a memory that a search found as soon as its type has been read, with the words of the
    /// term marked. Where it is not among the rows that were read, it stands in front of them until
    /// another question is asked.
    void reveal(const FoundHit& found, EditorAsk& ask) override;
    std::vector<RailRow> railRows() const override;
    std::optional<std::int64_t> railCount() const override;
    /// A type; none: all of them.
    void openPlace(const std::string& place, EditorAsk& ask) override;
    bool isAsRevealed() const override;
    bool isFilled() const override { return !m_cards.rows().empty(); }
    FacePictures pictures() override;

    void open(std::optional<std::string> type);
    Q_INVOKABLE void openCard(int index);
    Q_INVOKABLE void close() { open(std::nullopt); }

    const std::optional<std::string>& openType() const { return m_openType; }
    Shape shape() const;
    QString heading() const;
    TypeCards* cards() { return &m_cards; }
    MemoriesModel* list() { return &m_list; }
    StatusGroupedModel* groups() { return &m_groups; }
    QString emptyWords() const;
    QString nextStep() const;
    bool reading() const;
    bool refreshing() const { return reading() && m_answer->ask.has_value(); }
    QString strip() const;
    bool stripWarns() const;

Q_SIGNALS:
    void changed();

private:
    /// A memory in front of the rows that were read.
    struct Found {
        EditorMemoryHit hit;
        SharedAnswer page;            ///< with it
        SharedAnswer under = nullptr; ///< the same without it
    };

    void startAfresh();
    void applyType(std::optional<std::string> type, EditorAsk& ask);
    void keepCensus(const FaceView& view);
    void placeFound();
    void serveReveal();

    PageSource& m_source;
    const FaceActions m_actions;
    TypeCards m_cards;
    MemoriesModel m_list;
    StatusGroupedModel m_groups;
    EditorAsk m_ask{.term = {}};
    SharedAnswer m_answer = std::make_shared<const EditorAnswer>();
    /// What the last answer about memories counted of each type. Also moments are answered for.
    EditorAnswer m_census;
    std::set<std::string> m_censusScopes;
    bool m_counted = false;
    std::int64_t m_generation = 0;
    std::optional<std::string> m_openType;
    std::optional<EditorMemoryHit> m_wanted; ///< still to be opened
    std::string m_revealedID;                ///< of the memory that a search led to; empty for none
    std::optional<Found> m_found;
    std::string m_markedTerm; ///< of the search that led here; empty for none
};

} // namespace wendlow
