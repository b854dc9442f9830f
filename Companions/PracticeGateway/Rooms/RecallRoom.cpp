#include "RecallRoom.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include "DocumentCard.h"
#include "FilterText.h"
#include "LocalTime.h"
#include "PlainText.h"
#include "SelfNames.h"
#include "WordQuery.h"

namespace wendlow {
namespace {

constexpr std::int64_t usualLimit = 20;
constexpr std::string_view bestFirst = "rank";
constexpr std::string_view newestFirst = "at DESC, number DESC";

constexpr std::string_view tables = R"sql(
CREATE TABLE IF NOT EXISTS self_names(place INTEGER PRIMARY KEY, name TEXT NOT NULL);
)sql";

bool anything(const Document& /*document*/) {
    return true;
}

AnswerCase::Cards briefly(const std::vector<Document>& documents) {
    AnswerCase::Cards cards;
    for (const Document& document : documents)
        cards._0.push_back(DocumentCard::brief(document));
    return cards;
}

/// The line of the body in which the first word stands.
std::optional<std::string> lineWith(std::string_view body, std::string_view word) {
    const std::string wanted = PlainText::lowerCased(word);
    while (!body.empty()) {
        const std::string_view line = body.substr(0, body.find('\n'));
        if (PlainText::lowerCased(line).contains(wanted))
            return DocumentCard::beginning(PlainText::trimmed(line), 240);
        body.remove_prefix(std::min(line.size() + 1, body.size()));
    }
    return std::nullopt;
}

} // namespace

std::string_view RecallRoom::schema() {
    return tables;
}

RecallRoom::RecallRoom(DocumentStore& documents, Clock clock)
    : m_documents(documents), m_clock(std::move(clock)) {}

std::vector<Document> RecallRoom::found(const std::optional<std::string>& match,
                                        std::string_view order, std::int64_t limit,
                                        const std::function<bool(const Document&)>& takes) {
    std::vector<Document> documents;
    if (!match)
        return documents;
    Statement hits = m_documents.database().prepare(
        fmt::format("SELECT number FROM document_words JOIN documents ON number = "
                    "document_words.rowid WHERE document_words MATCH ? ORDER BY {}",
                    order));
    hits.bind(*match);
    while (std::ssize(documents) < limit && hits.step()) {
        auto document = m_documents.find(hits.integer(0));
        if (document && takes(*document))
            documents.push_back(std::move(*document));
    }
    return documents;
}

GatewayResponse RecallRoom::answer(const ReadCase::Search& request) {
    return briefly(found(WordQuery::allOf(request.query), bestFirst,
                         request.limit.value_or(usualLimit), anything));
}

GatewayResponse RecallRoom::answer(const ReadCase::Recall& request) {
    const auto inDays = [&](const Document& document) {
        const std::string day = LocalTime::day(document.at);
        return day >= request.from.value_or(day) && day <= request.to.value_or(day);
    };
    return briefly(found(WordQuery::allOf(request.query), bestFirst, usualLimit, inDays));
}

GatewayResponse RecallRoom::answer(const ReadCase::Grep& request) {
    constexpr std::int64_t most = 50;
    const auto words = WordQuery::words(request.query);
    const auto inDays = [&](const Document& document) {
        const std::string day = LocalTime::day(document.at);
        return day >= request.from.value_or(day) && day <= request.to.value_or(day);
    };
    AnswerCase::Cards cards;
    for (const Document& document :
         found(WordQuery::phrase(request.query), newestFirst, most, inDays)) {
        Card& card = cards._0.emplace_back(DocumentCard::brief(document));
        card.excerpt = lineWith(document.body, words.front());
    }
    return cards;
}

GatewayResponse RecallRoom::answer(const ReadCase::Browse& request) {
    if (const auto match = WordQuery::allOf(request.query.value_or(""))) {
        std::int64_t skipped = 0;
        return briefly(found(match, newestFirst, request.limit,
                             [&](const Document&) { return ++skipped > request.offset; }));
    }
    std::vector<Document> page;
    Statement newest = m_documents.database().prepare(
        fmt::format("SELECT number FROM documents ORDER BY {} LIMIT ? OFFSET ?", newestFirst));
    newest.bind(std::max<std::int64_t>(request.limit, 0), request.offset);
    while (newest.step())
        page.push_back(*m_documents.find(newest.integer(0)));
    return briefly(page);
}

GatewayResponse RecallRoom::answer(const ReadCase::Primed& request) {
    constexpr std::int64_t cards = 3;
    const double now = secondsOf(m_clock());
    const auto isMemory = [](const Document& document) {
        return document.kind == DocumentKind::memory;
    };
    AnswerCase::Primed primed;
    for (const Document& memory :
         found(WordQuery::anyOf(request.prompt), bestFirst, cards, isMemory))
        primed._0.push_back({.when = LocalTime::minute(memory.at),
                             .whenRelative = LocalTime::ago(memory.at, now),
                             .chapter = memory.scope,
                             .gist = memory.title,
                             .evidence = DocumentCard::beginning(memory.body, 240),
                             .grabId = memory.id});
    return primed;
}

GatewayResponse RecallRoom::answer(const NotesCase::SelfNames& request) {
    PracticeDatabase& database = m_documents.database();
    if (request.names) {
        Transaction transaction(database);
        database.run("DELETE FROM self_names");
        for (const std::string& name : SelfNames::tidy(*request.names))
            database.run("INSERT INTO self_names(name) VALUES(?)", name);
        transaction.commit();
    }
    std::vector<std::string> names;
    Statement rows = database.prepare("SELECT name FROM self_names ORDER BY place");
    while (rows.step())
        names.push_back(rows.text(0));
    return AnswerCase::NoteID{"self-names", std::move(names)};
}

GatewayResponse RecallRoom::answer(const ReadCase::ConfigScan& /*request*/) {
    return AnswerCase::Text{"This is the practice gateway; it opens no file but its own, so no "
                            "configuration was read."};
}

} // namespace wendlow
