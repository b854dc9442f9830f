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
    while (!path.empty()) {
        const auto end = std::min(path.find('/'), path.size());
        if (end > 0)
            made.append("/").append(path.substr(0, end));
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
        const auto entity = std::ranges::find_if(
            entities, [&](const auto& each) { return text.starts_with(each.first); });
        const bool found = entity != entities.end();
        plain += found ? entity->second : text.front();
        text.remove_prefix(found ? entity->first.size() : 1);
    }
    return plain;
}

} // namespace

EditorRulesCard EditorRulesCard::parse(std::string scope, std::string card) {
    EditorRulesCard made{.scope = std::move(scope), .raw = std::move(card)};
    std::optional<std::string_view> heading;
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
    auto trigger = attribute("trigger", line);
    auto file = attribute("file", line);
    const auto rev = decimalInteger(attribute("rev", line).value_or(""));
    if (name && trigger && file && rev)
        files.push_back({.scope = fileScope(*file),
                         .name = std::string(*name),
                         .trigger = *std::move(trigger),
                         .file = *std::move(file),
                         .rev = *rev});
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
    return EditorRuleLine{.id = std::string(line.substr(mark + opening.size())),
                          .text = std::string(Blanks::trimmed(line.substr(0, mark))),
                          .scope = std::string(scope)};
}

std::optional<std::string> EditorRulesCard::attribute(std::string_view name,
                                                      std::string_view line) {
    const std::string opening = std::string(name).append("=\"");
    const auto start = line.find(opening);
    if (start == std::string_view::npos)
        return std::nullopt;
    line.remove_prefix(start + opening.size());
    const auto end = line.find('"');
    if (end == std::string_view::npos)
        return std::nullopt;
    return unescaped(line.substr(0, end));
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
