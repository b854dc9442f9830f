#include "RecallRoom.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include "DocumentCard.h"
#include "FilterText.h"
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

RecallRoom::RecallRoom(DocumentStore& documents) : m_documents(documents) {}

std::vector<Document> RecallRoom::found(const std::optional<std::string>& match,
                                        std::string_view order, const Page& page) {
    std::vector<Document> documents;
    if (!match)
        return documents;
    Statement hits = m_documents.database().prepare(
        fmt::format("SELECT number FROM document_words JOIN documents ON number = "
                    "document_words.rowid WHERE document_words MATCH ? AND at >= ? AND at < ? "
                    "ORDER BY {} LIMIT ? OFFSET ?",
                    order));
    hits.bind(*match, page.days.from, page.days.to, std::max<std::int64_t>(page.limit, 0),
              page.offset);
    while (hits.step())
        if (auto document = m_documents.find(hits.integer(0)))
            documents.push_back(std::move(*document));
    return documents;
}

std::vector<Document> RecallRoom::newest(const Page& page) {
    std::vector<Document> documents;
    Statement rows = m_documents.database().prepare(
        fmt::format("SELECT number FROM documents WHERE at >= ? AND at < ? ORDER BY {} "
                    "LIMIT ? OFFSET ?",
                    newestFirst));
    rows.bind(page.days.from, page.days.to, std::max<std::int64_t>(page.limit, 0), page.offset);
    while (rows.step())
        if (auto document = m_documents.find(rows.integer(0)))
            documents.push_back(std::move(*document));
    return documents;
}

GatewayResponse RecallRoom::answer(const ReadCase::Search& request) {
    return briefly(found(WordQuery::allOf(request.query), bestFirst,
                         {.limit = request.limit.value_or(usualLimit)}));
}

GatewayResponse RecallRoom::answer(const ReadCase::Recall& request) {
    const auto days = DaySpan::read(request.from, request.to);
    if (!days)
        return AnswerCase::Failure{days.error()};
    const Page page{.days = *days, .limit = usualLimit};
    const auto match = WordQuery::allOf(request.query);
    // Days without words ask for what was in them; neither asks for nothing.
    if (!match && (request.from || request.to))
        return briefly(newest(page));
    return briefly(found(match, bestFirst, page));
}

GatewayResponse RecallRoom::answer(const ReadCase::Grep& request) {
    constexpr std::int64_t most = 50;
    const auto words = WordQuery::words(request.query);
    const auto days = DaySpan::read(request.from, request.to);
    if (!days)
        return AnswerCase::Failure{days.error()};
    AnswerCase::Cards cards;
    for (const Document& document :
         found(WordQuery::phrase(request.query), newestFirst, {.days = *days, .limit = most})) {
        Card& card = cards._0.emplace_back(DocumentCard::brief(document));
        card.excerpt = lineWith(document.body, words.front());
    }
    return cards;
}

GatewayResponse RecallRoom::answer(const ReadCase::Browse& request) {
    const Page page{.limit = request.limit, .offset = request.offset};
    const auto match = WordQuery::allOf(request.query.value_or(""));
    return briefly(match ? found(match, newestFirst, page) : newest(page));
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
