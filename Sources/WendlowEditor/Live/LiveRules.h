#pragma once

#include "Live/LivePages.h"
#include "Live/LiveScopes.h"

namespace wendlow {

/// The rules, as the daemon keeps them. May go while its answers are under way; the link must
/// outlive it.
class LiveRules final : public RuleSource {
    Q_OBJECT

public:
    /// A new rule is one memory more, so that the counts of `pages` are read again. What can be
    /// asked about is on the tree of `scopes`.
    LiveRules(EditorLink& link, LivePages& pages, const LiveScopes& scopes, LiveTell tell);
    ~LiveRules() override { m_life.end(); }

    QCoro::Task<EditorRulesPicture> rulesPicture(std::string scope) override;

    QCoro::Task<EditorWriteOutcome> editRuleLine(std::string id, std::string from,
                                                 std::string to) override;
    QCoro::Task<EditorWriteOutcome> addRule(std::string text, std::string why,
                                            EditorRulePlacement placement,
                                            std::string scope) override;

private:
    QCoro::Task<GatewayResponse> standing(std::string scope, bool card);
    QCoro::Task<EditorRulesPicture> compiled(std::string scope);

    EditorLink& m_link;
    LivePages& m_pages;
    const LiveScopes& m_scopes;
    const LiveTell m_tell;
    Lifetime m_life;
};

} // namespace wendlow
