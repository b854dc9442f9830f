#include "AnswerText.h"

#include <iterator>

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <fmt/format.h>
#include <fmt/ranges.h>

#include "PlainText.h"
#include "WireCodec.h"

namespace wendlow::AnswerText {

namespace {

using Told = std::expected<std::string, std::string>;

constexpr std::string_view unread = "Wendlow sent an answer we couldn't read";

void add(std::string& text, std::string_view name, const std::optional<std::string>& value) {
    if (value && !PlainText::trimmed(*value).empty())
        fmt::format_to(std::back_inserter(text), "{}: {}\n", name, PlainText::trimmed(*value));
}

std::string valueText(const FilterValue& value) {
    if (const auto* const word = std::get_if<std::string>(&value))
        return *word;
    if (const auto* const number = std::get_if<double>(&value))
        return fmt::format("{}", *number);
    return std::get<bool>(value) ? "true" : "false";
}

/// What a card is called, with its id as every tool takes it.
std::string heading(const Card& card) {
    std::string text = fmt::format("[{}] {}", card.id, card.memoryKind.value_or(card.kind));
    if (card.title && !card.title->empty())
        text += ": " + *card.title;
    if (card.filed)
        text += fmt::format(" ({})", *card.filed);
    if (card.when)
        text += ", " + *card.when;
    return text;
}

std::string filtersOf(const Card& card) {
    std::string text;
    for (const FilterPair& filter : card.filters.value_or(std::vector<FilterPair>{}))
        text +=
            fmt::format("{}{}={}", text.empty() ? "" : ", ", filter.key, valueText(filter.value));
    return text;
}

/// On a line or two, of many.
std::string brief(const Card& card) {
    std::string text = "- " + heading(card) + "\n";
    const std::string_view words =
        PlainText::trimmed(card.excerpt   ? *card.excerpt
                           : card.snippet ? std::string_view(*card.snippet)
                                          : "");
    // A thing without a title of its own is called by its first line.
    if (!words.empty() && words != card.title.value_or(""))
        fmt::format_to(std::back_inserter(text), "  {}\n", words);
    return text;
}

std::string list(const std::vector<Card>& cards) {
    std::string text;
    for (const Card& card : cards)
        text += brief(card);
    return text.empty() ? "Nothing was found." : text;
}

std::string sessionText(const SessionBody& session) {
    std::string text;
    add(text, "started", session.started);
    add(text, "last active", session.lastActive);
    if (!session.files.empty())
        text += fmt::format("files: {}{}\n", fmt::join(session.files, ", "),
                            session.filesMore > 0 ? fmt::format(" and {} more", session.filesMore)
                                                  : std::string());
    for (const std::string& line : session.tail)
        text += line + "\n";
    return text;
}

Told told(const AnswerCase::NoteID& answer) {
    if (answer.echo && !answer.echo->empty())
        return fmt::format("Saved {}: {}.", answer._0, fmt::join(*answer.echo, ", "));
    return fmt::format("Saved {}.", answer._0);
}

Told told(const AnswerCase::Text& answer) {
    return answer._0;
}

Told told(const AnswerCase::Cards& answer) {
    return list(answer._0);
}

Told told(const AnswerCase::KindCards& answer) {
    return answer.cards.empty() ? fmt::format("There is none of this type in {}.", answer.scope)
                                : fmt::format("In {}:\n{}", answer.scope, list(answer.cards));
}

Told told(const AnswerCase::KindTypes& answer) {
    if (answer.types.empty())
        return fmt::format("Nothing is remembered in {}.", answer.scope);
    std::string text = fmt::format("In {}:\n", answer.scope);
    for (const KindCount& type : answer.types) {
        text += fmt::format("- {}: {}", type.kind, type.count);
        std::string keys;
        for (const FilterKeyCount& key : type.filters.value_or(std::vector<FilterKeyCount>{}))
            keys += fmt::format("{}{} on {}", keys.empty() ? "" : ", ", key.key, key.count);
        text += keys.empty() ? "\n" : fmt::format(" (filters: {})\n", keys);
    }
    return text;
}

Told told(const AnswerCase::Thing& answer) {
    if (!answer._0)
        return "There is nothing of this id.";
    const Card& card = *answer._0;
    std::string text = heading(card) + "\n";
    add(text, "why", card.why);
    if (const std::string filters = filtersOf(card); !filters.empty())
        text += fmt::format("filters: {}\n", filters);
    if (card.session)
        text += sessionText(*card.session);
    if (card.snippet && !card.snippet->empty())
        text += "\n" + *card.snippet;
    if (card.body)
        text += fmt::format("\n{}{}", card.body->text,
                            card.body->hidden > 0
                                ? fmt::format("\n({} lines are left out)", card.body->hidden)
                                : std::string());
    return text;
}

Told told(const AnswerCase::RulesCard& answer) {
    std::string text = answer.card;
    add(text, "Note", answer.note);
    add(text, "Note", answer.pointer);
    return text;
}

Told told(const AnswerCase::StandingWalk& answer) {
    if (!answer._0 || answer._0->levels.empty())
        return "No rule is delivered there.";
    std::string text;
    for (const RulesWalk::Level& level : answer._0->levels) {
        text += level.path + "\n";
        for (const std::string& rule : level.rules)
            text += fmt::format("- {}\n", rule);
    }
    if (answer._0->overflow > 0)
        text += fmt::format("({} more are left out)\n", answer._0->overflow);
    return text;
}

Told told(const AnswerCase::Sessions& answer) {
    if (!answer._0)
        return "There are no earlier sessions.";
    std::string text = fmt::format("In {}:\n", answer._0->scope);
    for (const SessionOfferRow& row : answer._0->rows)
        text += fmt::format("- [{}] {}, {}{}\n", row.id, row.title, row.when,
                            row.length ? ", " + *row.length : std::string());
    return text;
}

Told told(const AnswerCase::SpanHours& answer) {
    const SpanHoursReport& span = answer._0;
    const auto minutes = [](std::int64_t seconds) {
        return fmt::format("{}h {:02}m", seconds / 3600, seconds / 60 % 60);
    };
    std::string text =
        fmt::format("{} to {}: {} at work\n", span.from, span.to, minutes(span.active));
    for (const SpanHoursReport::App& app : span.apps)
        text += fmt::format("- {}: {}\n", app.app, minutes(app.active));
    for (const SpanHoursReport::Day& day : span.days)
        text += fmt::format("{}: {}\n", day.day, minutes(day.attended + day.unattended));
    return text;
}

/// What no tool of the catalogue is answered.
template<class Other> Told told(const Other& /*answer*/) {
    return std::unexpected(std::string(unread));
}

} // namespace

Told told(const GatewayResponse& response, std::string_view tool) {
    if (const auto* const answer = std::get_if<AnswerCase::Failure>(&response))
        return std::unexpected(answer->message);
    if (std::holds_alternative<AnswerCase::Unimplemented>(response))
        return std::unexpected(
            fmt::format("This Wendlow does not know {} yet; it is older than this tool.", tool));
    return std::visit([](const auto& answer) { return told(answer); }, response);
}

std::optional<std::string> structured(const GatewayResponse& response) {
    constexpr std::size_t most = std::size_t{256} << 10U;
    if (std::holds_alternative<AnswerCase::Text>(response) || !told(response, ""))
        return std::nullopt;
    const auto json = WireCodec::encode(response);
    if (!json || json->size() > most)
        return std::nullopt;
    boost::json::value parsed = boost::json::parse(*json);
    // {"cards":{"_0":[…]}} says no more than {"cards":[…]}.
    auto& only = *parsed.as_object().begin();
    boost::json::object parts = std::move(only.value().as_object());
    if (auto* const nameless = parts.if_contains("_0")) {
        boost::json::value value = std::move(*nameless);
        parts.erase("_0");
        parts.insert_or_assign(only.key(), std::move(value));
    }
    return boost::json::serialize(parts);
}

} // namespace wendlow::AnswerText
