#pragma once

#include <string>
#include <string_view>

#include "DocumentStore.h"
#include "GatewayResponse.h"
#include "ReadRequest.h"
#include "RuleChain.h"
#include "ScopeRoom.h"

namespace wendlow {

/// The standing rules of a scope, as a compiled card or as the walk down to it.
class RuleRoom {
public:
    static std::string_view schema();

    RuleRoom(DocumentStore& documents, ScopeRoom& scopes);

    /// From now on.
    void setManner(RuleManner manner) { m_manner = manner; }

    /// With `card` the card, or an empty walk where no rule is delivered at the scope; without, the
    /// walk, which tells the scope also where it has no rules. The scope is the one that is named,
    /// else that of the session or the folder.
    GatewayResponse answer(const ReadCase::StandingRules& request);

private:
    RuleChain chain(std::string_view scope);
    /// Adds the rules that are filed at exactly this scope.
    void take(RuleChain& chain, const std::string& level);
    void addTag(RuleChain::Module& module, std::string_view scope, std::string_view tag);

    ScopeRoom& m_scopes;
    RuleManner m_manner;
    Statement m_filed;
    Statement m_module;
};

} // namespace wendlow
