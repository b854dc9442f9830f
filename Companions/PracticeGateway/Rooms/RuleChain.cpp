#include "RuleChain.h"

#include <algorithm>
#include <array>
#include <utility>

#include <fmt/format.h>

#include "ClientInstance.h"
#include "PlainText.h"
#include "ScopePath.h"
#include "WordList.h"

namespace wendlow {
namespace {

constexpr std::array<std::string_view, 6> reserved = {
    "rules", "mods", "user-rules", "wendlow-memory", "wendlow-rules", "wendlow-shortcut"};

std::string heading(std::string_view scope) {
    return scope == ScopePath::root ? "Global rules:" : fmt::format("{} rules:", scope);
}

std::string attribute(std::string_view text) {
    std::string escaped;
    for (const char letter : text) {
        switch (letter) {
        case '&':
            escaped += "&amp;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        default:
            escaped += letter;
        }
    }
    return escaped;
}

/// Where the module lies below the root of all rules: its scope is its folder.
std::string fileOf(const RuleChain::Module& module, const RuleManner& manner) {
    if (manner.olderCard)
        return module.name + ".md";
    const std::string_view folder = std::string_view(module.scope).substr(1);
    return fmt::format("{}{}{}.md", folder, folder.empty() ? "" : "/", module.name);
}

} // namespace

std::expected<RuleManner, std::string> RuleManner::parse(std::string_view words) {
    static constexpr WordList::Known<bool RuleManner::*> ways[] = {
        {"older-card", &RuleManner::olderCard}, {"other-scope", &RuleManner::otherScope},
        {"no-card", &RuleManner::noCard},       {"other-path", &RuleManner::otherPath},
        {"warning", &RuleManner::warning},      {"overflow", &RuleManner::overflow}};
    return WordList::switches(words, ways);
}

std::string RuleChain::card(const RuleManner& manner) const {
    std::string card;
    if (unreadable > 0)
        card +=
            fmt::format("⚠ Wendlow — {} here {} a rules-file tag that names no module and {} "
                        "no session.\n",
                        unreadable == 1 ? "1 rule" : fmt::format("{} rules", unreadable),
                        unreadable == 1 ? "has" : "have", unreadable == 1 ? "reaches" : "reach");
    if (manner.warning)
        card += "⚠ Wendlow — the Delivery pass has not run since yesterday, so this card is old.\n";
    std::string_view level;
    for (const Line& line : lines) {
        if (line.scope != level)
            card += heading(line.scope) + "\n";
        level = line.scope;
        card += fmt::format("- {}  ·m:{}·\n", line.text, line.id);
    }
    if (modules.empty())
        return card;
    card += fmt::format("\n<rules root=\"{}/rules{}\">\n", ClientInstance::dotRoot,
                        manner.olderCard && scope != ScopePath::root ? scope : "");
    for (const Module& module : modules)
        card += fmt::format("<{} trigger=\"{}\" file=\"{}\" rev=\"{}\"/>\n", module.name,
                            attribute(module.trigger), attribute(fileOf(module, manner)),
                            module.revision);
    return card + "</rules>\n";
}

RulesWalk RuleChain::walk(const RuleManner& manner) const {
    const std::int64_t ceiling = manner.overflow ? 2 : 200;
    RulesWalk walk{.path = scope, .levels = {}};
    std::int64_t count = 0;
    for (const Line& line : lines) {
        if (++count > ceiling) {
            ++walk.overflow;
            continue;
        }
        if (walk.levels.empty() || walk.levels.back().path != line.scope)
            walk.levels.push_back({line.scope, {}});
        walk.levels.back().rules.push_back(line.text);
    }
    return walk;
}

std::optional<std::string> RuleChain::moduleName(std::string_view text) {
    std::string name = PlainText::lowerCased(PlainText::trimmed(text));
    const auto isWord = [](char letter) {
        return (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9');
    };
    const bool legal =
        std::ranges::any_of(name, isWord) && !name.starts_with('-') && !name.ends_with('-') &&
        std::ranges::all_of(name, [&](char letter) { return isWord(letter) || letter == '-'; });
    if (!legal || std::ranges::find(reserved, name) != reserved.end())
        return std::nullopt;
    return name;
}

} // namespace wendlow
