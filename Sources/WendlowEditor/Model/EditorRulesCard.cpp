#include "Model/EditorRulesCard.h"

#include "Model/Blanks.h"
#include "Model/DecimalInteger.h"

#include <algorithm>
#include <array>
#include <utility>

namespace wendlow {

namespace {

constexpr std::string_view rootHeading = "Global rules:";
constexpr std::string_view headingEnd = " rules:";

/// A path without empty pieces: "/" before each of them, and nothing for none.
std::string tidied(std::string_view path) {
    std::string made;
    made.reserve(path.size() + 1);
    while (!path.empty()) {
        const auto end = std::min(path.find('/'), path.size());
        if (end > 0)
            (made += '/') += path.substr(0, end);
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return made;
}

std::string unescaped(std::string_view text) {
    constexpr std::array<std::pair<std::string_view, char>, 4> entities{
        {{"&quot;", '"'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}}};
    auto mark = text.find('&');
    if (mark == std::string_view::npos)
        return std::string(text);
    std::string plain;
    plain.reserve(text.size());
    for (; mark != std::string_view::npos; mark = text.find('&')) {
        plain += text.substr(0, mark);
        text.remove_prefix(mark);
        const auto entity = std::ranges::find_if(
            entities, [&](const auto& each) { return text.starts_with(each.first); });
        const bool found = entity != entities.end();
        plain += found ? entity->second : '&';
        text.remove_prefix(found ? entity->first.size() : 1);
    }
    return plain += text;
}

/// What stands between the quotes of each of these attributes, as it is written; nothing for one
/// that is not there or never closes. The first of a name counts, wherever it stands.
template<std::size_t count>
std::array<std::optional<std::string_view>, count>
written(const std::array<std::string_view, count>& names, std::string_view line) {
    std::array<std::optional<std::string_view>, count> values;
    std::array<bool, count> isFound{};
    for (auto at = line.find('='); at != std::string_view::npos; at = line.find('=', at + 1)) {
        if (!line.substr(at + 1).starts_with('"'))
            continue;
        for (std::size_t which = 0; which < count; ++which) {
            if (isFound[which] || !line.substr(0, at).ends_with(names[which]))
                continue;
            isFound[which] = true;
            if (const auto end = line.find('"', at + 2); end != std::string_view::npos)
                values[which] = line.substr(at + 2, end - at - 2);
        }
    }
    return values;
}

/// What a rule's line says; nothing of one that names no memory at its end.
struct RuleParts {
    std::string_view id;
    std::string_view text;
};
std::optional<RuleParts> ruleParts(std::string_view line) {
    constexpr std::string_view opening = "·m:";
    constexpr std::string_view closing = "·";
    line.remove_prefix(std::min<std::size_t>(2, line.size()));
    if (!line.ends_with(closing))
        return std::nullopt;
    line.remove_suffix(closing.size());
    const auto mark = line.rfind(opening);
    if (mark == std::string_view::npos || mark + opening.size() == line.size())
        return std::nullopt;
    return RuleParts{line.substr(mark + opening.size()), Blanks::trimmed(line.substr(0, mark))};
}

} // namespace

EditorRulesCard EditorRulesCard::parse(std::string scope, std::string card) {
    EditorRulesCard made{.scope = std::move(scope), .raw = std::move(card)};
    std::optional<std::string_view> heading;
    // About as many as there are: a large card's lines are not to be moved about as they grow.
    made.inlineRules.reserve(made.raw.size() / 64);
    for (std::string_view rest = made.raw; !rest.empty();) {
        const auto end = std::min(rest.find('\n'), rest.size());
        const std::string_view line = Blanks::trimmed(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        // Neither a warning nor a heading begins so.
        if (heading && line.starts_with("- ")) {
            if (const auto parts = ruleParts(line)) {
                EditorRuleLine& rule = made.inlineRules.emplace_back();
                rule.id = parts->id;
                rule.text = parts->text;
                rule.scope.emplace(*heading);
            }
            continue;
        }
        if (line.starts_with('<')) {
            heading.reset();
            made.takeTag(line);
            continue;
        }
        if (line.starts_with("⚠ Wendlow —"))
            made.warning = line;
        else if (const auto ofScope = headingScope(line))
            heading = ofScope;
        else if (!line.empty())
            heading.reset();
    }
    return made;
}

void EditorRulesCard::takeTag(std::string_view line) {
    if (line.starts_with("<rules root=")) {
        root = attribute("root", line).value_or("");
        return;
    }
    if (!line.ends_with("/>"))
        return;
    const auto name = tagName(line);
    const auto [trigger, file, rev] =
        written(std::to_array<std::string_view>({"trigger", "file", "rev"}), line);
    const auto number = decimalInteger(rev.value_or(""));
    if (!name || !trigger || !file || !number)
        return;
    EditorRulesFileEntry& entry = files.emplace_back();
    entry.name = *name;
    entry.trigger = unescaped(*trigger);
    entry.file = unescaped(*file);
    entry.scope = fileScope(entry.file);
    entry.rev = *number;
}

bool EditorRulesCard::isNewShape() const {
    if (std::ranges::any_of(files, [](const auto& entry) { return entry.file.contains('/'); }))
        return true;
    const std::string pieces = tidied(scope);
    return !pieces.empty() && !root.ends_with(pieces);
}

std::string EditorRulesCard::inlineHeading(std::string_view scope) {
    return scope == "/" ? std::string(rootHeading) : std::string(scope).append(headingEnd);
}

std::optional<std::string_view> EditorRulesCard::headingScope(std::string_view line) {
    if (line == rootHeading)
        return "/";
    if (!line.starts_with('/') || !line.ends_with(headingEnd))
        return std::nullopt;
    return line.substr(0, line.size() - headingEnd.size());
}

std::optional<EditorRuleLine> EditorRulesCard::ruleLine(std::string_view line,
                                                        std::string_view scope) {
    const auto parts = ruleParts(line);
    if (!parts)
        return std::nullopt;
    return EditorRuleLine{.id = std::string(parts->id),
                          .text = std::string(parts->text),
                          .scope = std::string(scope)};
}

std::optional<std::string> EditorRulesCard::attribute(std::string_view name,
                                                      std::string_view line) {
    const auto [value] = written(std::array{name}, line);
    return value ? std::optional(unescaped(*value)) : std::nullopt;
}

std::optional<std::string_view> EditorRulesCard::tagName(std::string_view line) {
    line.remove_prefix(std::min<std::size_t>(1, line.size()));
    const auto end = line.find_first_of(" />");
    if (end == std::string_view::npos || end == 0)
        return std::nullopt;
    return line.substr(0, end);
}

std::string EditorRulesCard::fileScope(std::string_view path) {
    while (path.ends_with('/'))
        path.remove_suffix(1);
    const auto name = path.rfind('/');
    if (name == std::string_view::npos)
        return "/";
    std::string folder = tidied(path.substr(0, name));
    if (folder.empty())
        folder = "/";
    return folder;
}

} // namespace wendlow
