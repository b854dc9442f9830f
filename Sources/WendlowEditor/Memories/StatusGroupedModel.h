#pragma once

#include "Memories/MemoryLines.h"
#include "Memories/StatusGrouping.h"
#include "Model/EditorAnswer.h"

#include <set>

namespace wendlow {

/// The work items of one type by their status. It has no pages. UI thread.
class StatusGroupedModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The face of the memories makes it.")
    Q_PROPERTY(wendlow::MemoryLines* lines READ lines CONSTANT)
    /// In place of rows; empty where there are some.
    Q_PROPERTY(QString emptyWords READ emptyWords NOTIFY changed)
    Q_PROPERTY(bool reading READ reading NOTIFY changed)
    /// That rows are missing; empty where none are.
    Q_PROPERTY(QString footer READ footer NOTIFY changed)

public:
    using RequestDetails = std::function<void(const std::vector<std::string>&)>;

    StatusGroupedModel(RequestDetails requestDetails, MemoryLines::Today today);

    void show(const SharedAnswer& answer, const MemoryDetails& details, const std::string& term);
    /// All groups are open, the archive and every memory are closed.
    void startAfresh();
    /// Opens a memory of the answer that is shown; false: it is not there.
    bool reveal(const std::string& memoryID);

    /// Opens or closes a group or a memory.
    Q_INVOKABLE void toggle(int index);
    /// Gives whether a memory was open.
    bool closeOpen();
    /// Of the memory that is open; empty for none.
    const std::string& openID() const { return m_openID; }

    bool showArchived() const { return m_showArchived; }
    MemoryLines* lines() { return &m_lines; }
    QString emptyWords() const;
    bool reading() const;
    QString footer() const;

Q_SIGNALS:
    void changed();
    /// A line is to come into sight.
    void revealed(int index);

private:
    void rebuild();
    void add(std::vector<MemoryLine>& lines, const std::string& id, const std::string& title,
             const EditorMemoryHits& rows, bool open) const;

    const RequestDetails m_requestDetails;
    MemoryLines m_lines;
    SharedAnswer m_answer = std::make_shared<const EditorAnswer>();
    const MemoryDetails* m_details = nullptr;
    std::string m_term;
    std::set<std::string> m_closed; ///< ids of heads
    bool m_showArchived = false;
    std::string m_openID; ///< of a memory; empty for none
};

} // namespace wendlow
