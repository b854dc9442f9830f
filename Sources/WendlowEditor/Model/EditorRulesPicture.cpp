#include "Model/EditorRulesPicture.h"

#include "Say.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

struct Words {
    std::string operator()(const EditorRulesGapCase::UnaddressableScope& gap) const {
        return say(
            "The compiled card for {} can’t be asked for: this window’s scope board doesn’t carry "
            "that scope, so there is nothing to ask about. Any rules filed there are below — they "
            "are the store, which is truth; the revs and triggers are the compiler’s.",
            gap.scope);
    }
    std::string operator()(const EditorRulesGapCase::ScopeMismatch& gap) const {
        return say(
            "Wendlow was asked about {0} and answered about {1}, so nothing compiled is shown: "
            "rules from the wrong scope under this heading would be worse than none. The rules "
            "filed at {0} are below — they are the store, which is truth. (An older Wendlow that "
            "doesn’t understand a scope argument answers like this.)",
            gap.asked, gap.served);
    }
    std::string operator()(const EditorRulesGapCase::NothingCompiled& gap) const {
        return say("Nothing is compiled at {} yet. The rules below are filed in the store; "
                   "the Delivery pass writes their rules modules and stamps the revs.",
                   gap.scope);
    }
    std::string operator()(const EditorRulesGapCase::Failed& gap) const { return gap.words; }
};

} // namespace

std::string words(const EditorRulesGap& gap) {
    return std::visit(Words(), gap);
}

EditorRuleGrouping EditorRulesFiles::placement(const std::map<std::string, std::string>& filters,
                                               Topics topics) {
    const auto unreadable = [] {
        return EditorRuleGrouping{say("unreadable rules-file tag — delivering nothing"),
                                  EditorRuleTier::undelivered};
    };
    if (const auto tag = filters.find("rules-file"); tag != filters.end()) {
        auto name = normalizedName(tag->second);
        return name ? EditorRuleGrouping{*std::move(name), EditorRuleTier::file} : unreadable();
    }
    if (const auto topic = filters.find("topic"); topic != filters.end()) {
        if (topics == Topics::areDark)
            return unreadable();
        return {normalizedName(topic->second).value_or(topic->second), EditorRuleTier::legacy};
    }
    return {say("inline rules"), EditorRuleTier::everyPrompt};
}

std::vector<EditorRuleFileGroup>
EditorRulesFiles::ordered(std::vector<EditorRuleFileGroup> groups) {
    std::ranges::stable_sort(groups, {}, [](const EditorRuleFileGroup& group) {
        return std::pair<EditorRuleTier, std::string_view>(group.tier, group.name);
    });
    return groups;
}

EditorAsk EditorRulesPicture::filedAsk(const std::string& scope) {
    EditorAsk ask{.term = {}};
    ask.type = "rule";
    if (scope != "/")
        ask.scopes = {scope};
    ask.limit = mostFiled;
    return ask;
}

void EditorRulesPicture::takeFiled(const EditorAnswer& answer) {
    filedState = answer.state;
    filedTotal = answer.total;
    const auto topics = card && card->isNewShape() ? EditorRulesFiles::Topics::areDark
                                                   : EditorRulesFiles::Topics::deliver;
    filed.clear();
    for (const EditorMemoryHit& row : answer.rows) {
        auto grouping = EditorRulesFiles::placement(row.memory.filters, topics);
        auto group = std::ranges::find_if(filed, [&](const EditorRuleFileGroup& each) {
            return each.name == grouping.name && each.tier == grouping.tier;
        });
        if (group == filed.end())
            group = filed.insert(
                group, {.name = std::move(grouping.name), .tier = grouping.tier, .rules = {}});
        group->rules.push_back(
            {.id = row.memory.id, .text = row.memory.title, .scope = row.scopeID});
    }
    filed = EditorRulesFiles::ordered(std::move(filed));
    if (!card)
        return;
    for (EditorRulesFileEntry& entry : card->files) {
        entry.ruleCount.reset();
        for (const EditorRuleFileGroup& group : filed)
            if (entry.scope == card->scope && group.tier == EditorRuleTier::file &&
                group.name == entry.name)
                if (const auto here =
                        std::ranges::count(group.rules, card->scope, &EditorRuleLine::scope);
                    here > 0)
                    entry.ruleCount = here;
    }
}

} // namespace wendlow
