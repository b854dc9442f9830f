#pragma once

#include "Live/LivePages.h"

namespace wendlow {

/// The rules, as the daemon keeps them. May go while its answers are under way; the link must
/// outlive it.
class LiveRules final : public RuleSource {
    Q_OBJECT

public:
    /// A new rule is one memory more, so that the counts of `pages` are read again.
    LiveRules(EditorLink& link, LivePages& pages, LiveTell tell);
    ~LiveRules() override { m_life.end(); }

    QCoro::Task<EditorWriteOutcome> editRuleLine(std::string id, std::string from,
                                                 std::string to) override;
    QCoro::Task<EditorWriteOutcome> addRule(std::string text, std::string why,
                                            EditorRulePlacement placement,
                                            std::string scope) override;

private:
    EditorLink& m_link;
    LivePages& m_pages;
    const LiveTell m_tell;
    Lifetime m_life;
};

} // namespace wendlow
