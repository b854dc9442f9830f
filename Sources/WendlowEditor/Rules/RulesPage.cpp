#include "Rules/RulesPage.h"

#include "Floor/EditorWords.h"
#include "Floor/TextMatch.h"
#include "Rules/EditorRulesCost.h"
#include "Say.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

using Kind = RulesRow::Kind;
using Tone = RulesRow::Tone;

std::string countedRules(std::int64_t number) {
    return say.plural(number, "{} rule", "{} rules", number);
}

std::string caption(EditorRuleTier tier) {
    switch (tier) {
    case EditorRuleTier::everyPrompt:
        return say("no rules module — these ride every prompt, verbatim");
    case EditorRuleTier::undelivered:
        return say("the tag says nothing Wendlow can read — these reach no session");
    case EditorRuleTier::legacy:
        return say("pre-rebuild tag — the migration sweeps this");
    case EditorRuleTier::file:
        break;
    }
    return {};
}

/// Writes the rows in their order. A row keeps its id as long as it speaks of the same thing, so
/// that it keeps its place and its focus when the picture is read again.
class Writer {
public:
    Writer(const EditorRulesPicture& picture, const std::string& scope, std::string_view term)
        : m_picture(picture), m_scope(scope), m_term(term) {}

    std::vector<RulesRow> written() {
        strips();
        if (m_picture.card && !m_picture.card->inlineRules.empty())
            everyPrompt(*m_picture.card);
        if (m_picture.stack)
            stack(*m_picture.stack);
        if (m_picture.card && !m_picture.card->files.empty())
            modules(*m_picture.card);
        filed();
        return std::move(m_rows);
    }

private:
    RulesRow& add(Kind kind, std::string id, std::string text) {
        if (const int copy = m_ids[id]++; copy > 0)
            id += fmt::format("#{}", copy);
        return m_rows.emplace_back(
            RulesRow{.id = std::move(id), .kind = kind, .text = std::move(text)});
    }
    RulesRow& section(std::string id, std::string title) {
        RulesRow& row = add(Kind::section, std::move(id), std::move(title));
        row.apart = m_rows.size() > 1;
        return row;
    }
    void note(std::string id, std::string words) {
        const bool apart = !m_rows.empty() && m_rows.back().kind != Kind::section;
        add(Kind::note, std::move(id), std::move(words)).apart = apart;
    }
    RulesRow& strip(std::string id, std::string words, Tone tone) {
        RulesRow& row = add(Kind::strip, std::move(id), std::move(words));
        row.tone = tone;
        return row;
    }

    void strips() {
        if (const auto& gap = m_picture.gap) {
            const bool failed = std::holds_alternative<EditorRulesGapCase::Failed>(*gap);
            const bool warns =
                failed || std::holds_alternative<EditorRulesGapCase::ScopeMismatch>(*gap);
            strip("strip/gap", words(*gap), warns ? Tone::warning : Tone::information).canRetry =
                failed;
        }
        if (m_picture.card && m_picture.card->warning)
            strip("strip/warning", *m_picture.card->warning, Tone::warning);
    }

    void everyPrompt(const EditorRulesCard& card) {
        const auto cost = EditorRulesCost::inlineTier(card);
        section("section/card", say("Rules riding every prompt")).beside =
            countedRules(cost.rules) + " · " +
            say.plural(cost.tokens, "~{} token riding every prompt",
                       "~{} tokens riding every prompt", cost.tokens);
        const auto begin = m_rows.size();
        for (const EditorRuleLine& line : card.inlineRules) {
            RulesRow& row = add(Kind::rule, "card/" + line.id, line.text);
            row.ruleID = line.id;
            row.trailing = line.scope.value_or("");
        }
        frame(begin);
        const std::int64_t whole = EditorRulesCost::wholeCard(card).tokens;
        note("note/card",
             say.plural(whole,
                        "The whole card — these lines plus the fetch index below — is ~{} token. "
                        "Token counts are estimated at four characters each, the same way the "
                        "compiler estimates them.",
                        "The whole card — these lines plus the fetch index below — is ~{} tokens. "
                        "Token counts are estimated at four characters each, the same way the "
                        "compiler estimates them.",
                        whole));
    }

    void stack(const EditorRulesStack& stack) {
        section("section/stack", say("The stack a session receives at {}", stack.path));
        if (stack.levels.empty())
            note("note/stack", say("No rules are in force here."));
        const auto begin = m_rows.size();
        for (const auto& level : stack.levels) {
            const auto at = m_rows.size();
            for (const EditorRuleLine& line : level.rules)
                add(Kind::level, fmt::format("stack/{}/{}", level.path, line.text), line.text);
            if (level.rules.empty())
                add(Kind::level, "stack/" + level.path, "");
            RulesRow& head = m_rows[at];
            head.lead = level.path;
            if (&level == &stack.levels.front())
                head.trailing = say("injected first");
            else if (&level == &stack.levels.back())
                head.trailing = say("nearest the prompt");
            m_rows.back().ends = true;
        }
        frame(begin);
        if (stack.overflow >= 1)
            note("note/overflow",
                 say.plural(stack.overflow,
                            "{} deeper rule were dropped by the daemon’s sanity ceiling — the "
                            "shallow ones survive.",
                            "{} deeper rules were dropped by the daemon’s sanity ceiling — the "
                            "shallow ones survive.",
                            stack.overflow));
    }

    void modules(const EditorRulesCard& card) {
        section("section/modules", say("Rules modules on this scope chain"));
        note("note/modules",
             say("Compiled under {}. A rules module is read when its sentence matches the "
                 "work; the rev is the freshness signal — same rev, the cached read still "
                 "stands. One rules module is one scope's rules, so a shallower one and a "
                 "deeper one may share a name.",
                 card.root));
        const auto begin = m_rows.size();
        for (const EditorRulesFileEntry& entry : card.files) {
            RulesRow& row =
                add(Kind::module, fmt::format("module/{}/{}", entry.scope, entry.name), entry.name);
            row.beside = entry.scope;
            row.under = entry.trigger;
            row.trailing = say("rev {}", entry.rev);
            if (entry.ruleCount)
                row.count = countedRules(*entry.ruleCount);
        }
        frame(begin);
    }

    void filed() {
        const bool everywhere = m_scope == "/";
        section("section/filed",
                everywhere ? say("Rules filed at every scope") : say("Rules filed here"))
            .canAdd = true;
        if (const auto told = EditorWords::strip(m_picture.filedState); !told.words.isEmpty())
            strip("strip/filed", told.words.toStdString(),
                  told.warns ? Tone::warning : Tone::information)
                .canRetry = true;
        else if (m_picture.filed.empty() &&
                 std::holds_alternative<EditorAnswerStateCase::Settled>(m_picture.filedState))
            note("note/filed", everywhere ? say("No rules are filed anywhere yet.")
                                          : say("No rules are filed at this scope."));
        if (RulesPage::nothingMatches(m_picture.filed, m_term))
            note("note/filed", say("Nothing matches “{}” in the rules filed here.", m_term));
        for (const EditorRuleFileGroup& group : m_picture.filed)
            filedGroup(group);
        if (m_picture.filedTotal > EditorRulesPicture::mostFiled && !m_picture.filed.empty())
            note("note/more", everywhere ? shownEverywhere() : shownHere());
    }

    std::string shownEverywhere() const {
        return say.plural(m_picture.filedTotal,
                          "Showing the first {} of {} rule filed at every scope.",
                          "Showing the first {} of {} rules filed at every scope.",
                          EditorRulesPicture::mostFiled, m_picture.filedTotal);
    }
    std::string shownHere() const {
        return say.plural(m_picture.filedTotal, "Showing the first {} of {} rule filed here.",
                          "Showing the first {} of {} rules filed here.",
                          EditorRulesPicture::mostFiled, m_picture.filedTotal);
    }

    void filedGroup(const EditorRuleFileGroup& group) {
        std::vector<const EditorRuleLine*> shown;
        for (const EditorRuleLine& line : group.rules)
            if (TextMatch::contains(line.text, m_term))
                shown.push_back(&line);
        if (shown.empty())
            return;
        const auto begin = m_rows.size();
        const bool apart = m_rows.back().kind != Kind::section;
        RulesRow& head =
            add(Kind::group, fmt::format("group/{}/{}", static_cast<int>(group.tier), group.name),
                group.name);
        head.apart = apart;
        head.count = fmt::format("{}", shown.size());
        head.beside = caption(group.tier);
        for (const EditorRuleLine* const line : shown) {
            RulesRow& row = add(Kind::rule, "filed/" + line->id, line->text);
            row.ruleID = line->id;
            if (line->scope && *line->scope != m_scope)
                row.trailing = *line->scope;
        }
        frame(begin);
    }

    /// The rows from here on stand on one card.
    void frame(std::size_t begin) {
        if (begin == m_rows.size())
            return;
        m_rows[begin].first = true;
        m_rows.back().last = true;
    }

    const EditorRulesPicture& m_picture;
    const std::string& m_scope;
    const std::string_view m_term;
    std::vector<RulesRow> m_rows;
    std::unordered_map<std::string, int> m_ids;
};

} // namespace

std::vector<RulesRow> RulesPage::rows(const EditorRulesPicture& picture, const std::string& scope,
                                      std::string_view term) {
    return Writer(picture, scope, term).written();
}

bool RulesPage::nothingMatches(const std::vector<EditorRuleFileGroup>& groups,
                               std::string_view term) {
    return !groups.empty() && !term.empty() &&
           std::ranges::none_of(groups, [&](const EditorRuleFileGroup& group) {
               return std::ranges::any_of(group.rules, [&](const EditorRuleLine& line) {
                   return TextMatch::contains(line.text, term);
               });
           });
}

std::vector<std::string> RulesPage::pickable(const std::optional<EditorRulesCard>& card,
                                             std::string_view scope) {
    std::vector<std::string> names;
    if (!card)
        return names;
    const bool ofScope = card->isNewShape();
    for (const EditorRulesFileEntry& entry : card->files)
        if (!ofScope || entry.scope == scope)
            names.push_back(entry.name);
    return names;
}

} // namespace wendlow
