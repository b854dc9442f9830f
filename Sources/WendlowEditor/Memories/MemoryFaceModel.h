#pragma once

#include "Memories/MemoriesModel.h"
#include "Memories/StatusGroupedModel.h"
#include "Memories/TypeCards.h"

namespace wendlow {

/// The first face of the window: a card for each type, or the memories of the type that is open,
/// work items by their status. UI thread.
class MemoryFaceModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The root of the window makes it.")
    /// "grid", "list" or "groups".
    Q_PROPERTY(QString shape READ shape NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(wendlow::TypeCards* cards READ cards CONSTANT)
    Q_PROPERTY(wendlow::MemoriesModel* list READ list CONSTANT)
    Q_PROPERTY(wendlow::StatusGroupedModel* groups READ groups CONSTANT)
    /// In place of cards; empty where there are some.
    Q_PROPERTY(QString emptyWords READ emptyWords NOTIFY changed)
    Q_PROPERTY(bool reading READ reading NOTIFY changed)
    /// What is on screen is being asked for again.
    Q_PROPERTY(bool refreshing READ refreshing NOTIFY changed)
    /// What the state of the answer has to tell; empty for nothing.
    Q_PROPERTY(QString strip READ strip NOTIFY changed)
    Q_PROPERTY(bool stripWarns READ stripWarns NOTIFY changed)

public:
    struct Actions {
        FilterBarModel::ChangeAsk ask;
        std::function<void(std::optional<std::string>)> open;
        MemoriesModel::RequestDetails requestDetails;
        MemoryLines::Today today;
    };
    struct State {
        const EditorAsk& ask;
        SharedAnswer answer;
        const std::vector<EditorCount>& standing;
        const std::optional<std::string>& openType;
        const SearchPage::Details& details;
    };

    explicit MemoryFaceModel(Actions actions);

    static bool isWorkItem(std::string_view type);

    void show(State state);
    /// Another type is open now.
    void startAfresh();
    /// Opens a memory that a search found as soon as its type has been read, with the words of
    /// `term` marked. Where it is not among the rows that were read, it stands in front of them
    /// until another question is asked.
    void reveal(EditorMemoryHit hit, std::string term);
    /// What was found may be another now, or gone.
    void forgetFound() { m_found.reset(); }

    Q_INVOKABLE void openCard(int index);
    Q_INVOKABLE void close() { m_actions.open(std::nullopt); }
    /// One step back from what is open. Gives whether there was one.
    bool back();

    QString shape() const;
    QString title() const;
    TypeCards* cards() { return &m_cards; }
    MemoriesModel* list() { return &m_list; }
    StatusGroupedModel* groups() { return &m_groups; }
    QString emptyWords() const;
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

    void placeFound();
    void serveReveal();

    const Actions m_actions;
    TypeCards m_cards;
    MemoriesModel m_list;
    StatusGroupedModel m_groups;
    SharedAnswer m_answer = std::make_shared<const EditorAnswer>();
    std::optional<std::string> m_openType;
    std::optional<EditorMemoryHit> m_wanted; ///< still to be opened
    std::optional<Found> m_found;
    std::string m_markedTerm; ///< of the search that led here; empty for none
};

} // namespace wendlow
