#include "Library.h"

#include <charconv>
#include <set>
#include <utility>

#include <QByteArray>
#include <QUrl>
#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>
#include <fmt/format.h>

#include "AnswerText.h"
#include "PlainText.h"

namespace wendlow::Library {

namespace {

namespace json = boost::json;

constexpr std::string_view memoryRoot = "wendlow://memory/";
constexpr std::string_view rulesRoot = "wendlow://rules";
constexpr std::string_view moduleKey = "rules-file";
constexpr std::string_view promptName = "remembered";
constexpr std::int64_t page = 50;
constexpr std::int64_t mostRules = 200;

Outcome fault(Fault::Kind kind, std::string sentence) {
    return std::unexpected(Fault{kind, std::move(sentence)});
}

/// A failure of the gateway, or an answer that nobody asked for.
Outcome refusal(const GatewayResponse& answer) {
    const auto told = AnswerText::told(answer, "this");
    return fault(Fault::Kind::refused,
                 told ? std::string("Wendlow sent an answer we couldn't read") : told.error());
}

std::string encoded(std::string_view text, const char* kept) {
    const QByteArray bytes(text.data(), static_cast<qsizetype>(text.size()));
    return bytes.toPercentEncoding(kept).toStdString();
}

std::string decoded(std::string_view text) {
    const QByteArray bytes(text.data(), static_cast<qsizetype>(text.size()));
    return QByteArray::fromPercentEncoding(bytes).toStdString();
}

struct Module {
    std::string scope;
    std::string name; ///< as the rules are tagged with it
    auto operator<=>(const Module&) const = default;
};

std::string uriOf(const Module& module) {
    return fmt::format("{}{}/{}", rulesRoot,
                       module.scope == "/" ? std::string() : encoded(module.scope, "/"),
                       encoded(module.name, ""));
}

std::optional<Module> moduleIn(std::string_view uri) {
    if (!uri.starts_with(rulesRoot) || !uri.substr(rulesRoot.size()).starts_with('/'))
        return std::nullopt;
    const std::string_view path = uri.substr(rulesRoot.size());
    const std::size_t last = path.rfind('/');
    Module module{.scope = last == 0 ? "/" : decoded(path.substr(0, last)),
                  .name = decoded(path.substr(last + 1))};
    return module.name.empty() ? std::nullopt : std::optional(std::move(module));
}

GatewayRequest browsing(std::optional<std::string> type, std::int64_t limit, std::int64_t offset) {
    return ReadRequest(ReadCase::TextBrowse{.type = std::move(type),
                                            .scopes = {},
                                            .limit = limit,
                                            .kind = "memory",
                                            .order = "newest",
                                            .filters = {},
                                            .offset = offset});
}

std::set<Module> modulesOf(const TextBrowseAnswer& rules) {
    std::set<Module> modules;
    for (const TextBrowseRow& row : rules.rows)
        for (const FilterPair& filter : row.filters)
            if (const auto* const name = std::get_if<std::string>(&filter.value);
                filter.key == moduleKey && name != nullptr && !name->empty())
                modules.insert({row.scope, *name});
    return modules;
}

json::object entry(const Module& module) {
    return {{"uri", uriOf(module)},
            {"name", module.name},
            {"description", fmt::format("Rules of {}, to be read before such work.", module.scope)},
            {"mimeType", "text/plain"}};
}

json::object entry(const TextBrowseRow& row) {
    return {{"uri", std::string(memoryRoot) + encoded(row.id, "")},
            {"name", row.id},
            {"title", row.title},
            {"description", fmt::format("{} at {}", row.type, row.scope)},
            {"mimeType", "text/plain"}};
}

std::string contents(std::string_view uri, std::string_view text) {
    return json::serialize(
        json::object{{"contents", {{{"uri", uri}, {"mimeType", "text/plain"}, {"text", text}}}}});
}

std::optional<std::int64_t> offsetIn(const std::optional<std::string>& cursor) {
    if (!cursor)
        return 0;
    std::int64_t offset = 0;
    const char* const end = cursor->data() + cursor->size();
    const auto [stopped, error] = std::from_chars(cursor->data(), end, offset);
    return error == std::errc() && stopped == end && offset >= 0 ? std::optional(offset)
                                                                 : std::nullopt;
}

QCoro::Task<Outcome> readModule(Call call, std::string uri, Module module) {
    ReadCase::GetByType question{
        .type = "rule",
        .path = module.scope,
        .filters = std::map<std::string, FilterValue>{{std::string(moduleKey), module.name}}};
    GatewayRequest request = ReadRequest(std::move(question));
    const auto answer = co_await call->ask(std::move(request));
    if (!answer)
        co_return std::nullopt;
    const auto* const found = std::get_if<AnswerCase::KindCards>(&*answer);
    if (found == nullptr)
        co_return refusal(*answer);
    std::string text;
    for (const Card& card : found->cards) {
        if (card.filed != module.scope) // a scope below it has modules of its own
            continue;
        ReadCase::Grab grab{.id = card.id};
        grab.full = true;
        GatewayRequest grabbing = ReadRequest(std::move(grab));
        const auto whole = co_await call->ask(std::move(grabbing));
        if (!whole)
            co_return std::nullopt;
        const auto* const thing = std::get_if<AnswerCase::Thing>(&*whole);
        if (thing == nullptr)
            co_return refusal(*whole);
        if (thing->_0 && thing->_0->snippet)
            text += fmt::format("- {}\n", PlainText::trimmed(*thing->_0->snippet));
    }
    if (text.empty())
        co_return fault(Fault::Kind::notFound,
                        fmt::format("{} has no rules module {}", module.scope, module.name));
    co_return contents(uri, text);
}

} // namespace

QCoro::Task<Outcome> list(Call call, std::optional<std::string> cursor) {
    const auto offset = offsetIn(cursor);
    if (!offset)
        co_return fault(Fault::Kind::badArgument, "the cursor is none of this server's");
    json::array resources;
    if (*offset == 0) {
        GatewayRequest ofRules = browsing("rule", mostRules, 0);
        const auto rules = co_await call->ask(std::move(ofRules));
        if (!rules)
            co_return std::nullopt;
        const auto* const found = std::get_if<AnswerCase::TextBrowse>(&*rules);
        if (found == nullptr)
            co_return refusal(*rules);
        for (const Module& module : modulesOf(found->_0))
            resources.push_back(entry(module));
    }
    GatewayRequest ofMemories = browsing(std::nullopt, page, *offset);
    const auto memories = co_await call->ask(std::move(ofMemories));
    if (!memories)
        co_return std::nullopt;
    const auto* const found = std::get_if<AnswerCase::TextBrowse>(&*memories);
    if (found == nullptr)
        co_return refusal(*memories);
    for (const TextBrowseRow& row : found->_0.rows)
        resources.push_back(entry(row));
    json::object result{{"resources", std::move(resources)}};
    const std::int64_t next = *offset + std::ssize(found->_0.rows);
    if (!found->_0.rows.empty() && next < found->_0.total)
        result.emplace("nextCursor", fmt::format("{}", next));
    co_return json::serialize(result);
}

std::string templates() {
    return json::serialize(
        json::object{{"resourceTemplates",
                      {{{"uriTemplate", std::string(memoryRoot) + "{id}"},
                        {"name", "memory"},
                        {"description", "A memory, by its id."},
                        {"mimeType", "text/plain"}},
                       {{"uriTemplate", std::string(rulesRoot) + "{+scope}/{module}"},
                        {"name", "rules"},
                        {"description", "The rules of a module at a scope."},
                        {"mimeType", "text/plain"}}}}});
}

QCoro::Task<Outcome> read(Call call, std::string uri) {
    if (auto module = moduleIn(uri))
        co_return co_await readModule(call, uri, std::move(*module));
    if (!uri.starts_with(memoryRoot))
        co_return fault(Fault::Kind::notFound, "Resource not found: " + uri);
    ReadCase::Grab grab{.id = decoded(std::string_view(uri).substr(memoryRoot.size()))};
    grab.full = true;
    GatewayRequest grabbing = ReadRequest(std::move(grab));
    const auto answer = co_await call->ask(std::move(grabbing));
    if (!answer)
        co_return std::nullopt;
    const auto* const thing = std::get_if<AnswerCase::Thing>(&*answer);
    if (thing == nullptr)
        co_return refusal(*answer);
    if (!thing->_0)
        co_return fault(Fault::Kind::notFound, "Resource not found: " + uri);
    co_return contents(uri, AnswerText::told(*answer, "this").value_or(""));
}

std::string prompts() {
    return json::serialize(json::object{
        {"prompts",
         {{{"name", promptName},
           {"title", "What do you remember about …"},
           {"description", "Asks for everything that is remembered about something."},
           {"arguments",
            {{{"name", "about"}, {"description", "What it is about."}, {"required", true}}}}}}}});
}

QCoro::Task<Outcome> prompt(Call call, std::string name, std::optional<std::string> about) {
    if (name != promptName)
        co_return fault(Fault::Kind::badArgument, "Unknown prompt: " + name);
    if (!about || PlainText::trimmed(*about).empty())
        co_return fault(Fault::Kind::badArgument, "remembered needs about");
    GatewayRequest recalling = ReadRequest(ReadCase::Recall{.query = *about});
    const auto answer = co_await call->ask(std::move(recalling));
    if (!answer)
        co_return std::nullopt;
    if (!std::holds_alternative<AnswerCase::Cards>(*answer))
        co_return refusal(*answer);
    const std::string text =
        fmt::format("What do you remember about {}?\n\nWendlow has found this; read what matters "
                    "whole with the tool grab, look further with recall, and say from which "
                    "memory each thing is.\n\n{}",
                    *about, AnswerText::told(*answer, "this").value_or(""));
    co_return json::serialize(json::object{
        {"messages", {{{"role", "user"}, {"content", {{"type", "text"}, {"text", text}}}}}}});
}

} // namespace wendlow::Library
