#include "HookText.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "PlainText.h"

namespace wendlow::HookText {

namespace {

bool continues(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

void addLine(std::string& text, std::string_view line) {
    const std::string_view trimmed = PlainText::trimmed(line);
    if (!trimmed.empty())
        fmt::format_to(std::back_inserter(text), "{}\n", trimmed);
}

/// The value of an attribute of a card's line, as it stands there.
std::string_view attribute(std::string_view line, std::string_view name) {
    const std::string opening = fmt::format(" {}=\"", name);
    const std::size_t from = line.find(opening);
    if (from == std::string_view::npos)
        return {};
    const std::string_view value = line.substr(from + opening.size());
    return value.substr(0, value.find('"'));
}

/// The modules that a card lists, a line for each.
std::string modules(std::string_view card) {
    std::string list;
    const std::size_t opening = card.find("<rules root=");
    if (opening == std::string_view::npos)
        return list;
    card.remove_prefix(opening);
    while (!card.empty()) {
        const std::string_view line = card.substr(0, card.find('\n'));
        card.remove_prefix(std::min(line.size() + 1, card.size()));
        if (line.starts_with("</rules>"))
            break;
        const std::string_view name = line.substr(0, line.find(' '));
        if (name.size() > 1 && name.starts_with('<') && name != "<rules")
            list += fmt::format("- {}: {}\n", name.substr(1), attribute(line, "trigger"));
    }
    return list;
}

std::string walked(const RulesWalk& walk) {
    std::string text;
    for (const RulesWalk::Level& level : walk.levels) {
        text += level.path == "/" ? "Global rules:\n" : fmt::format("{} rules:\n", level.path);
        for (const std::string& rule : level.rules)
            text += fmt::format("- {}\n", rule);
    }
    if (walk.overflow > 0)
        text += fmt::format("{} more {} not told here.\n", walk.overflow,
                            walk.overflow == 1 ? "rule is" : "rules are");
    addLine(text, walk.note.value_or(""));
    addLine(text, walk.onboarding.value_or(""));
    return text;
}

std::string told(const PrimeCard& card) {
    const std::string_view gist = PlainText::trimmed(card.gist);
    const std::string_view evidence = PlainText::trimmed(card.evidence);
    // A memory without a title of its own is called by its first line.
    const bool twice = evidence.starts_with(gist);
    return fmt::format("- [{}] {}{}{} ({}, {})\n", card.grabId, twice ? "" : gist,
                       twice || gist.empty() ? "" : ": ", evidence, card.chapter,
                       card.whenRelative);
}

std::string told(const ShortcutCase::Fired& shortcut) {
    std::string text = fmt::format("The prompt calls the person's shortcut “{}”.\n", shortcut.name);
    if (shortcut.argument)
        text += fmt::format("With: {}\n", *shortcut.argument);
    addLine(text, shortcut.body);
    return text;
}

std::string told(const ShortcutCase::List& shortcuts) {
    std::string text = "The person asks which shortcuts there are:\n";
    for (const ShortcutRow& row : shortcuts._0)
        text += fmt::format("- {} ({})\n", row.name, row.when);
    if (shortcuts.detail)
        text += fmt::format("{}:\n{}\n", shortcuts.detail->name, shortcuts.detail->body);
    return text;
}

std::string told(const ShortcutCase::Unreadable& shortcut) {
    return fmt::format("The prompt calls a shortcut that cannot be read: {}\n", shortcut.reason);
}

std::string told(const MeetingJustEnded& meeting) {
    return fmt::format("A meeting has just ended: {}{}{}, {} to {}. The tool meeting_get tells of "
                       "it by the id {}.\n",
                       meeting.title.value_or("untitled"),
                       meeting.speakers.empty() ? "" : ", with ", fmt::join(meeting.speakers, ", "),
                       meeting.started, meeting.ended, meeting.key);
}

/// No more than fits; between two characters.
std::string_view beginning(std::string_view text, std::size_t most, const HookHarness& harness) {
    std::size_t end = std::min(most, text.size());
    while (end > 0 && end < text.size() && continues(text[end]))
        --end;
    // A character has at least as many bytes as units, so more of it may fit where units count.
    std::size_t taken = size(text.substr(0, end), harness);
    while (end < text.size()) {
        std::size_t next = end + 1;
        while (next < text.size() && continues(text[next]))
            ++next;
        taken += size(text.substr(end, next - end), harness);
        if (taken > most)
            break;
        end = next;
    }
    return text.substr(0, end);
}

} // namespace

std::string rules(const GatewayResponse& answer) {
    if (const auto* const walk = std::get_if<AnswerCase::StandingWalk>(&answer))
        return walk->_0 ? walked(*walk->_0) : std::string();
    const auto* const card = std::get_if<AnswerCase::RulesCard>(&answer);
    if (card == nullptr)
        return {};
    std::string text;
    if (!PlainText::trimmed(card->card).empty())
        text = fmt::format("{}\n", PlainText::trimmed(card->card));
    addLine(text, card->note.value_or(""));
    addLine(text, card->onboarding.value_or(""));
    addLine(text, card->pointer.value_or(""));
    return text;
}

std::string index(std::string_view scope, const AnswerCase::KindTypes& types,
                  const AnswerCase::RulesCard* card) {
    constexpr std::size_t mostTypes = 12;
    std::vector<std::string> counts;
    for (const KindCount& type : types.types) {
        if (counts.size() == mostTypes) {
            counts.push_back(fmt::format("{} more types", types.types.size() - mostTypes));
            break;
        }
        counts.push_back(fmt::format("{} {}", type.count, type.kind));
    }
    const std::string fetched = card == nullptr ? std::string() : modules(card->card);
    std::string text;
    if (counts.empty() && fetched.empty())
        return text;
    text = fmt::format("The scope here is {}. ", scope);
    if (!counts.empty())
        text += fmt::format("Remembered in it: {}. ", fmt::join(counts, ", "));
    text += "Fetch with recall or memory_get_by_type, file with memory_add.\n";
    if (!fetched.empty())
        text += "Rules to read before such work, each by memory_get_by_type with type rule and "
                "filters {\"rules-file\": its name}:\n" +
                fetched;
    return text;
}

std::string recall(const AnswerCase::Primed& answer) {
    std::string text;
    if (answer.shortcut)
        text += std::visit([](const auto& which) { return told(which); }, *answer.shortcut);
    if (answer.justEnded)
        text += told(*answer.justEnded);
    if (answer._0.empty())
        return text;
    text += "Remembered, and perhaps of use here; the tool grab gives each whole by its id:\n";
    for (const PrimeCard& card : answer._0)
        text += told(card);
    return text;
}

std::size_t size(std::string_view text, const HookHarness& harness) {
    if (harness.countsBytes)
        return text.size();
    std::size_t units = 0;
    for (const char byte : text)
        if (!continues(byte))
            units += static_cast<unsigned char>(byte) >= 0xF0U ? 2 : 1;
    return units;
}

std::string within(std::string text, std::size_t most, const HookHarness& harness) {
    constexpr std::string_view said = "(Wendlow cut this here; its tools give the rest.)\n";
    if (size(text, harness) <= most)
        return text;
    if (most <= said.size())
        return {};
    const std::string_view rest = beginning(text, most - said.size() - 4, harness);
    const std::size_t line = rest.rfind('\n');
    // A first line that is longer than everything is better cut than lost.
    if (line == std::string_view::npos || line == 0)
        return fmt::format("{}…\n{}", rest, said);
    return fmt::format("{}\n{}", rest.substr(0, line), said);
}

std::string block(std::string_view tag, std::string_view text) {
    if (text.empty())
        return {};
    std::string inside(text);
    for (const std::string_view mark : {"<wendlow-", "</wendlow-"})
        for (std::size_t at = inside.find(mark); at != std::string::npos;
             at = inside.find(mark, at + 1))
            inside.replace(at, 1, "‹");
    return fmt::format("<{0}>\n{1}</{0}>\n", tag, inside);
}

} // namespace wendlow::HookText
