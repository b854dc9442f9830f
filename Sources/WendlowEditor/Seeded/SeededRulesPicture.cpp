#include "Seeded/SeededRulesPicture.h"

#include "ScopePath.h"

#include <map>
#include <utility>
#include <vector>

#include <fmt/format.h>

namespace wendlow {

namespace {

/// The scopes from the root down to `scope`.
void walk(const EditorScope& from, const std::string& scope,
          std::vector<const EditorScope*>& levels) {
    if (!ScopePath::inScope(scope, from.id))
        return;
    levels.push_back(&from);
    for (const EditorScope& child : from.children)
        walk(child, scope, levels);
}

/// What a daemon would compile of some levels.
struct Compiled {
    EditorRulesStack stack;
    std::string card;
    bool empty = true;

    Compiled(const std::vector<const EditorScope*>& levels, const std::string& scope)
        : stack{.path = scope} {
        std::string modules;
        for (const EditorScope* const level : levels)
            add(*level, modules);
        if (!modules.empty())
            card += fmt::format("\n<rules root=\"~/.wendlow/rules\">\n{}</rules>\n", modules);
    }

private:
    void add(const EditorScope& level, std::string& modules) {
        std::map<std::string, std::int64_t> counts;
        std::vector<EditorRuleLine> lines;
        for (const EditorMemory& memory : level.memories) {
            if (memory.type != "rule")
                continue;
            const EditorRuleGrouping place =
                EditorRulesFiles::placement(memory.filters, EditorRulesFiles::Topics::areDark);
            if (place.tier == EditorRuleTier::file)
                ++counts[place.name];
            else if (place.tier == EditorRuleTier::everyPrompt)
                lines.push_back({.id = memory.id, .text = memory.title, .scope = level.id});
        }
        if (!lines.empty()) {
            card += EditorRulesCard::inlineHeading(level.id) + "\n";
            for (const EditorRuleLine& line : lines)
                card += fmt::format("- {}  ·m:{}·\n", line.text, line.id);
            stack.levels.push_back({.path = level.id, .rules = std::move(lines)});
        }
        const std::string folder = level.id == "/" ? "" : level.id.substr(1) + "/";
        for (const auto& [name, count] : counts)
            modules += fmt::format(
                "<{0} trigger=\"Read before work that touches {0}.\" file=\"{1}{0}.md\" "
                "rev=\"{2}\"/>\n",
                name, folder, count);
        empty = empty && card.empty() && modules.empty();
    }
};

} // namespace

EditorRulesPicture SeededRulesPictures::picture(const SeededContents& contents,
                                                const SeededQuery& query,
                                                const std::string& scope) {
    EditorRulesPicture made;
    if (contents.root.find(scope) == nullptr) {
        made.gap = EditorRulesGapCase::UnaddressableScope{scope};
    } else {
        std::vector<const EditorScope*> levels;
        walk(contents.root, scope, levels);
        Compiled compiled(levels, scope);
        made.stack = std::move(compiled.stack);
        if (compiled.empty)
            made.gap = EditorRulesGapCase::NothingCompiled{scope};
        else
            made.card = EditorRulesCard::parse(scope, std::move(compiled.card));
    }
    made.takeFiled(query.answer(EditorRulesPicture::filedAsk(scope)));
    return made;
}

} // namespace wendlow
