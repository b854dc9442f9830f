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
    std::string plain;
    plain.reserve(text.size());
    while (!text.empty()) {
        const auto mark = std::min(text.find('&'), text.size());
        plain += text.substr(0, mark);
        text.remove_prefix(mark);
        if (text.empty())
            break;
        const auto entity = std::ranges::find_if(
            entities, [&](const auto& each) { return text.starts_with(each.first); });
        const bool found = entity != entities.end();
        plain += found ? entity->second : '&';
        text.remove_prefix(found ? entity->first.size() : 1);
    }
    return plain;
}

/// What stands between the quotes of an attribute, as it is written.
std::optional<std::string_view> written(std::string_view name, std::string_view line) {
    constexpr std::string_view opening = "=\"";
    for (auto at = line.find(name); at != std::string_view::npos; at = line.find(name, at + 1)) {
        const std::string_view rest = line.substr(at + name.size());
        if (!rest.starts_with(opening))
            continue;
        const auto end = rest.find('"', opening.size());
        if (end == std::string_view::npos)
            return std::nullopt;
        return rest.substr(opening.size(), end - opening.size());
    }
    return std::nullopt;
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
        if (line.starts_with("⚠ Wendlow —")) {
            made.warning = line;
            continue;
        }
        if (const auto ofScope = headingScope(line)) {
            heading = ofScope;
            continue;
        }
        if (heading && line.starts_with("- ")) {
            if (auto rule = ruleLine(line, *heading))
                made.inlineRules.push_back(*std::move(rule));
            continue;
        }
        if (!line.empty())
            heading.reset();
        made.takeTag(line);
    }
    return made;
}

void EditorRulesCard::takeTag(std::string_view line) {
    if (line.starts_with("<rules root=")) {
        root = attribute("root", line).value_or("");
        return;
    }
    if (!line.starts_with('<') || !line.ends_with("/>"))
        return;
    const auto name = tagName(line);
    const auto trigger = written("trigger", line);
    const auto file = written("file", line);
    const auto rev = decimalInteger(written("rev", line).value_or(""));
    if (!name || !trigger || !file || !rev)
        return;
    EditorRulesFileEntry& entry = files.emplace_back();
    entry.name = *name;
    entry.trigger = unescaped(*trigger);
    entry.file = unescaped(*file);
    entry.scope = fileScope(entry.file);
    entry.rev = *rev;
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
    constexpr std::string_view opening = "·m:";
    constexpr std::string_view closing = "·";
    line.remove_prefix(std::min<std::size_t>(2, line.size()));
    if (!line.ends_with(closing))
        return std::nullopt;
    line.remove_suffix(closing.size());
    const auto mark = line.rfind(opening);
    if (mark == std::string_view::npos || mark + opening.size() == line.size())
        return std::nullopt;
    std::optional<EditorRuleLine> made(std::in_place);
    made->id = line.substr(mark + opening.size());
    made->text = Blanks::trimmed(line.substr(0, mark));
    made->scope = scope;
    return made;
}

std::optional<std::string> EditorRulesCard::attribute(std::string_view name,
                                                      std::string_view line) {
    const auto value = written(name, line);
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
    std::string folder = tidied(path);
    folder.erase(std::min(folder.rfind('/'), folder.size()));
    return folder.empty() ? "/" : folder;
}

} // namespace wendlow
