#pragma once

#include "Memories/FilterBarModel.h"
#include "Memories/MemoryLines.h"

#include <QVariantList>

#include <set>

namespace wendlow {

/// The flat list of a type's memories: its pages, its sort words, its filters. UI thread.
class MemoriesModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The face of the memories makes it.")
    Q_PROPERTY(wendlow::MemoryLines* lines READ lines CONSTANT)
    Q_PROPERTY(wendlow::FilterBarModel* filters READ filters CONSTANT)
    Q_PROPERTY(QString countLine READ countLine NOTIFY changed)
    /// The sort words in order, each a map with `word` and `picked`.
    Q_PROPERTY(QVariantList sorts READ sorts NOTIFY changed)
    /// In place of rows; empty where there are some.
    Q_PROPERTY(QString emptyWords READ emptyWords NOTIFY changed)
    /// An answer is under way.
    Q_PROPERTY(bool reading READ reading NOTIFY changed)

public:
    using ChangeAsk = FilterBarModel::ChangeAsk;
    using RequestDetails = std::function<void(const std::vector<std::string>&)>;

    static constexpr std::int64_t pageStep = 12;

    MemoriesModel(ChangeAsk changeAsk, RequestDetails requestDetails, MemoryLines::Today today);

    /// So much that the store is a page ahead.
    static std::int64_t limitFor(std::int64_t visibleCount);

    void show(const EditorAsk& ask, const SharedAnswer& answer, const MemoryDetails& details,
              const std::string& term);
    /// The first page, no panel, nothing opened.
    void startAfresh();
    /// Opens a memory of the answer that is shown; false: it is not there.
    bool reveal(const std::string& memoryID);
    std::int64_t visibleCount() const { return m_visibleCount; }
    bool showSubline() const { return m_showSubline; }
    void setShowSubline(bool show) { m_showSubline = show; }

    /// A row has come on screen. What follows from it happens when control is back in the event
    /// loop, so that a list may say so while it lays itself out.
    Q_INVOKABLE void rowAppeared(int index);
    /// By the key of one of `sorts`.
    Q_INVOKABLE void sortBy(const QString& key);
    /// Opens or closes a memory.
    Q_INVOKABLE void toggle(int index);
    /// Gives whether a memory was open.
    bool closeOpen();
    /// Of the memory that is open; empty for none.
    const std::string& openID() const { return m_openID; }
    /// Reads on as far as there is to read, and brings the last memory into sight.
    Q_INVOKABLE void goToEnd();

    MemoryLines* lines() { return &m_lines; }
    FilterBarModel* filters() { return &m_filters; }
    const FilterBarModel& filters() const { return m_filters; }
    QString countLine() const;
    QVariantList sorts() const;
    QString emptyWords() const;
    bool reading() const;

Q_SIGNALS:
    void changed();
    /// A line is to come into sight.
    void revealed(int index);
    /// The rows answer another question than those before.
    void turned();

private:
    void rebuild();
    bool goOn();
    MemoryLine line(std::size_t at) const;
    void refold(const std::string& memoryID);
    void serveAppeared();
    void setVisibleCount(std::int64_t count);
    void showEnd();

    const ChangeAsk m_changeAsk;
    const RequestDetails m_requestDetails;
    MemoryLines m_lines;
    FilterBarModel m_filters;
    EditorAsk m_ask{.term = {}};
    SharedAnswer m_answer = std::make_shared<const EditorAnswer>();
    const MemoryDetails* m_details = nullptr;
    std::string m_term;
    std::int64_t m_visibleCount = pageStep;
    bool m_showSubline = true;
    std::string m_openID;     ///< of a memory; empty for none
    std::string m_unfoldedID; ///< of the memory whose line is open; empty for none
    EditorRows m_built;       ///< what the lines show; none where they are to be made anew
    std::set<int> m_appeared;
    bool m_goesToEnd = false;    ///< the last memory is to come into sight when it has been read
    bool m_waitsForMore = false; ///< the last row is in sight, and no more are held
};

} // namespace wendlow
