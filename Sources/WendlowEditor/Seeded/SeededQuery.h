#pragma once

#include "Model/EditorAnswer.h"
#include "Ranking/EditorRelevance.h"
#include "Seeded/SeedWorlds.h"

namespace wendlow {

/// A made-up world, made ready to be asked the way the daemon is. Immutable once built.
class SeededQuery {
public:
    explicit SeededQuery(const SeededContents& contents);

    /// Every memory with the scope where it is filed, by a walk of the tree.
    const EditorMemoryHits& allMemories() const { return m_memories; }
    EditorAnswer answer(const EditorAsk& ask) const;

private:
    void addMoments(EditorAnswer& answer) const;

    EditorMemoryHits m_memories;
    EditorMemoryHits m_momentRows; ///< so that moments are searched and cut like memories
    std::vector<EditorMoment> m_moments;
    EditorRelevance m_relevance;
    EditorRelevance m_momentRelevance;
};

} // namespace wendlow
