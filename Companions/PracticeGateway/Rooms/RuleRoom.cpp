#include "RuleRoom.h"

#include <map>
#include <set>
#include <utility>

#include <fmt/format.h>

#include "FilterText.h"
#include "ScopeName.h"
#include "ScopePath.h"

namespace wendlow {
namespace {

// The revision of a module is what tells a session that its copy is stale, so it is counted where
// no road to a rule can pass it by. Names stand as they were tagged.
constexpr std::string_view tables = R"sql(
CREATE TABLE IF NOT EXISTS rule_modules(
    scope TEXT NOT NULL, tag TEXT NOT NULL, revision INTEGER NOT NULL, sentence TEXT,
    PRIMARY KEY(scope, tag)) WITHOUT ROWID;
CREATE INDEX IF NOT EXISTS rules_by_scope ON documents(scope, number) WHERE type = 'rule';

CREATE TRIGGER IF NOT EXISTS rule_filed AFTER INSERT ON documents
WHEN new.type = 'rule' AND json_type(new.filters, '$."rules-file"') = 'text' BEGIN
    INSERT INTO rule_modules(scope, tag, revision)
    VALUES (new.scope, json_extract(new.filters, '$."rules-file"'), 1)
    ON CONFLICT DO UPDATE SET revision = revision + 1;
END;
CREATE TRIGGER IF NOT EXISTS rule_changed
AFTER UPDATE OF type, scope, filters, body ON documents
WHEN old.type = 'rule' AND json_type(old.filters, '$."rules-file"') = 'text'
    AND (old.type, old.scope, old.filters, old.body)
        IS NOT (new.type, new.scope, new.filters, new.body) BEGIN
    UPDATE rule_modules SET revision = revision + 1
    WHERE scope = old.scope AND tag = json_extract(old.filters, '$."rules-file"');
END;
CREATE TRIGGER IF NOT EXISTS rule_moved AFTER UPDATE OF type, scope, filters ON documents
WHEN new.type = 'rule' AND json_type(new.filters, '$."rules-file"') = 'text'
    AND (old.type, old.scope, json_extract(old.filters, '$."rules-file"'))
        IS NOT (new.type, new.scope, json_extract(new.filters, '$."rules-file"')) BEGIN
    INSERT INTO rule_modules(scope, tag, revision)
    VALUES (new.scope, json_extract(new.filters, '$."rules-file"'), 1)
    ON CONFLICT DO UPDATE SET revision = revision + 1;
END;
CREATE TRIGGER IF NOT EXISTS rule_removed AFTER DELETE ON documents
WHEN old.type = 'rule' AND json_type(old.filters, '$."rules-file"') = 'text' BEGIN
    UPDATE rule_modules SET revision = revision + 1
    WHERE scope = old.scope AND tag = json_extract(old.filters, '$."rules-file"');
END;
)sql";

/// The tag by which a rule asks for a module; a legacy "topic" names none but to an older daemon.
std::optional<std::string> tagOf(std::string_view filters, const RuleManner& manner) {
    for (const FilterPair& filter : FilterText::read(filters))
        if (filter.key == "rules-file" || filter.key == "topic") {
            const auto* text = std::get_if<std::string>(&filter.value);
            const bool names = filter.key == "rules-file" || manner.olderCard;
            return names && text != nullptr ? *text : "";
        }
    return std::nullopt;
}

} // namespace

std::string_view RuleRoom::schema() {
    return tables;
}

RuleRoom::RuleRoom(DocumentStore& documents, ScopeRoom& scopes)
    : m_scopes(scopes), m_filed(documents.database().prepare(
                            "SELECT id, replace(trim(body), char(10), ' '), filters FROM documents "
                            "WHERE type = 'rule' AND scope = ? ORDER BY number")),
      m_module(documents.database().prepare(
          "SELECT revision, sentence FROM rule_modules WHERE scope = ? AND tag = ?")) {}

void RuleRoom::take(RuleChain& chain, const std::string& level) {
    std::map<std::string, RuleChain::Module> modules;
    std::set<std::string> tags;
    m_filed.bind(level);
    while (m_filed.step()) {
        const auto tag = tagOf(m_filed.view(2), m_manner);
        if (!tag) {
            chain.lines.push_back({level, m_filed.text(0), m_filed.text(1)});
            continue;
        }
        const auto name = RuleChain::moduleName(*tag);
        if (!name) {
            ++chain.unreadable;
            continue;
        }
        // Two spellings of one name are one module, and either's change is a change of it.
        if (tags.insert(*tag).second)
            addTag(modules[*name], level, *tag);
    }
    for (auto& [name, module] : modules) {
        module.scope = level;
        module.name = name;
        if (module.trigger.empty())
            module.trigger = fmt::format("Read before work that touches {}.", name);
        chain.modules.push_back(std::move(module));
    }
}

void RuleRoom::addTag(RuleChain::Module& module, std::string_view scope, std::string_view tag) {
    m_module.bind(scope, tag);
    if (!m_module.step())
        return;
    module.revision += m_module.integer(0);
    module.trigger = m_module.text(1);
    m_module.reset();
}

RuleChain RuleRoom::chain(std::string_view scope) {
    RuleChain chain{.scope = std::string(scope), .lines = {}, .modules = {}};
    for (const std::string& level : ScopeName::chain(scope))
        take(chain, level);
    return chain;
}

GatewayResponse RuleRoom::answer(const ReadCase::StandingRules& request) {
    const std::string scope =
        request.scope ? *request.scope : m_scopes.scopeOf(request.session, request.cwd);
    if (!ScopeName::isValid(scope))
        return AnswerCase::Failure{fmt::format("“{}” is not a scope: {}", scope, ScopeName::form)};
    const bool elsewhere = request.card ? m_manner.otherScope : m_manner.otherPath;
    const RuleChain rules = chain(elsewhere ? ScopePath::root : std::string_view(scope));
    if (request.card && (rules.deliversNothing() || m_manner.noCard))
        return AnswerCase::StandingWalk{};
    if (request.card)
        return AnswerCase::RulesCard{.scope = rules.scope, .card = rules.card(m_manner)};
    return AnswerCase::StandingWalk{rules.walk(m_manner)};
}

} // namespace wendlow
