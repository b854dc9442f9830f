#pragma once

#include "Live/EditorBrowses.h"
#include "Live/EditorLink.h"
#include "Live/LiveTell.h"
#include "Records/TextBrowseAnswer.h"

namespace wendlow {

/// The daemon's memories and moments, page by page, and the counts of the whole store. May go while
/// its answers are under way; the link must outlive it.
class LivePages final : public PageSource {
    Q_OBJECT

public:
    LivePages(EditorLink& link, LiveTell tell);
    ~LivePages() override { m_life.end(); }

    QCoro::Task<EditorAnswer> query(EditorAsk ask, EditorAsker asker) override;
    QCoro::Task<std::optional<EditorMemoryDetail>> detail(std::string id) override;
    const std::vector<EditorCount>& memoryTypeCounts() const override { return m_typeCounts; }
    std::optional<std::int64_t> momentCount() const override { return m_momentCount; }

    /// Asks for what describes the whole store: its counts, and next to no rows. The counts move on
    /// its way.
    QCoro::Task<EditorAnswer> baseline();
    /// The moments as a baseline has them, which may have none. Gives whether that is news.
    bool countMoments(const EditorAnswer& baseline);

private:
    QCoro::Task<EditorAnswer> answer(EditorAsk ask, EditorAsker asker);
    EditorAnswer settled(const TextBrowseAnswer& wire, const EditorAsk& ask, EditorAsker asker);
    void count(const EditorAnswer& whole);

    EditorLink& m_link;
    const LiveTell m_tell;
    std::vector<EditorCount> m_typeCounts;
    std::optional<std::int64_t> m_momentCount;
    std::int64_t m_baselineTotal = 0;   ///< memories in the whole store, when last seen
    std::optional<EditorAsk> m_heldAsk; ///< what the page of a face last answered
    EditorRows m_held;
    EditorMoments m_heldMoments;
    Lifetime m_life;
    EditorBrowses m_page; // these last: who waits in them is resumed while they go
    EditorBrowses m_search;
};

} // namespace wendlow
