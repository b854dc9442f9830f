#include "PrimeRoom.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <tuple>
#include <utility>

#include <fmt/format.h>

#include "DocumentCard.h"
#include "LocalTime.h"
#include "PlainText.h"
#include "ScopePath.h"
#include "WordQuery.h"

namespace wendlow {
namespace {

constexpr std::string_view tables = R"sql(
CREATE TABLE IF NOT EXISTS primed_cards(
    session TEXT NOT NULL, memory TEXT NOT NULL, at REAL NOT NULL,
    PRIMARY KEY(session, memory)) WITHOUT ROWID;
)sql";

constexpr std::size_t mostCards = 3;
/// Of a prompt, from its beginning and from its end: what is pasted stands in between.
constexpr std::size_t mostBytes = std::size_t{8} << 10U;
constexpr std::size_t mostWords = 24;
/// A word that stands in more things than this, and in more than a tenth of all, tells nothing
/// about any of them.
constexpr std::int64_t fewThings = 2000;

/// Of the weight of all words that tell something, a memory has to have so much; less where it has
/// several of them.
constexpr double enough = 0.4;
constexpr double enoughOfMany = 0.15;
constexpr int many = 3;

/// Words of which every prompt is made.
bool isPlain(std::string_view word) {
    static const std::set<std::string_view> plain = {
        "about", "after",   "again", "also",   "always", "and",    "another", "any",    "are",
        "back",  "because", "been",  "before", "being",  "but",    "can",     "could",  "did",
        "does",  "doing",   "done",  "each",   "else",   "ever",   "every",   "few",    "for",
        "from",  "get",     "give",  "going",  "good",   "had",    "has",     "have",   "help",
        "her",   "here",    "him",   "his",    "how",    "into",   "its",     "just",   "know",
        "last",  "let",     "like",  "made",   "make",   "many",   "may",     "more",   "most",
        "much",  "must",    "need",  "new",    "next",   "not",    "now",     "off",    "one",
        "only",  "other",   "our",   "out",    "over",   "please", "put",     "really", "same",
        "say",   "see",     "shall", "she",    "should", "show",   "some",    "still",  "such",
        "take",  "tell",    "than",  "that",   "the",    "their",  "them",    "then",   "there",
        "these", "they",    "thing", "things", "think",  "this",   "those",   "time",   "today",
        "told",  "too",     "two",   "under",  "upon",   "use",    "used",    "very",   "want",
        "was",   "way",     "well",  "were",   "what",   "when",   "where",   "which",  "while",
        "who",   "whom",    "why",   "will",   "with",   "work",   "would",   "yes",    "yet",
        "you",   "your"};
    return plain.contains(word);
}

std::string ends(std::string_view prompt) {
    if (prompt.size() <= 2 * mostBytes)
        return std::string(prompt);
    return fmt::format("{} {}", prompt.substr(0, mostBytes),
                       prompt.substr(prompt.size() - mostBytes));
}

/// The words that may tell something, in the index's own language: "releases" finds "release", and
/// the other way about.
std::vector<std::string> tellingWords(std::string_view prompt) {
    std::vector<std::string> telling;
    for (const std::string& spelled : WordQuery::words(ends(prompt))) {
        std::string word = PlainText::lowerCased(spelled);
        if (word.size() < 3 || isPlain(word))
            continue;
        if (word.size() > 4 && word.ends_with('s') && !word.ends_with("ss"))
            word.pop_back();
        std::string query = fmt::format("\"{}\"{}", word, word.size() > 3 ? "*" : "");
        if (std::ranges::find(telling, query) == telling.end())
            telling.push_back(std::move(query));
        if (telling.size() == mostWords)
            break;
    }
    return telling;
}

} // namespace

std::string_view PrimeRoom::schema() {
    return tables;
}

PrimeRoom::PrimeRoom(DocumentStore& documents, ScopeRoom& scopes, Clock clock)
    : m_documents(documents), m_scopes(scopes), m_clock(std::move(clock)),
      m_matching(documents.database().prepare(
          "SELECT rowid FROM document_words WHERE document_words MATCH ? LIMIT ?")),
      m_told(documents.database().prepare(
          "SELECT 1 FROM primed_cards WHERE session = ? AND memory = ?")) {}

std::vector<PrimeRoom::Found> PrimeRoom::relevant(std::string_view prompt, std::string_view scope) {
    const DocumentFacets& facets = m_documents.facets();
    const std::uint32_t rule = facets.types().find("rule"); // told by a way of their own
    const auto isNear = [&](const DocumentFacets::Row& row) {
        const std::string_view filed = facets.scopes().text(row.scope);
        return ScopePath::inScope(filed, scope) || ScopePath::inScope(scope, filed);
    };
    const std::int64_t mostHits = std::max(fewThings, std::ssize(facets.rows()) / 10);
    std::unordered_map<std::int64_t, Score> scores;
    double whole = 0;
    for (const std::string& word : tellingWords(prompt)) {
        m_matching.bind(word, mostHits + 1);
        std::vector<std::int64_t> hits;
        while (m_matching.step())
            hits.push_back(m_matching.integer(0));
        if (std::ssize(hits) > mostHits)
            continue;
        const auto all = static_cast<double>(facets.rows().size());
        const auto carriers = static_cast<double>(std::max<std::size_t>(hits.size(), 1));
        const double weight = std::log(1 + all / (1 + carriers));
        whole += weight;
        for (const std::int64_t number : hits) {
            const DocumentFacets::Row& row = facets.row(number);
            if (!row.present || row.kind != DocumentKind::memory || row.type == rule ||
                !isNear(row))
                continue;
            scores[number].weight += weight;
            ++scores[number].words;
        }
    }
    std::vector<Found> found;
    for (const auto& [number, score] : scores)
        if (score.weight >= whole * (score.words >= many ? enoughOfMany : enough))
            found.push_back({number, score.weight, facets.row(number).at});
    std::ranges::sort(found, std::ranges::greater{},
                      [](const Found& one) { return std::tuple(one.weight, one.at, one.number); });
    return found;
}

bool PrimeRoom::wasTold(const std::string& session, const std::string& memory) {
    const bool was = m_told.bind(session, memory).step();
    m_told.reset();
    return was;
}

void PrimeRoom::tell(const std::string& session, const std::vector<PrimeCard>& cards) {
    constexpr double month = 30.0 * 86400;
    PracticeDatabase& database = m_documents.database();
    const double now = secondsOf(m_clock());
    Transaction transaction(database);
    database.run("DELETE FROM primed_cards WHERE at < ?", now - month);
    for (const PrimeCard& card : cards)
        database.run("INSERT OR REPLACE INTO primed_cards(session, memory, at) VALUES(?, ?, ?)",
                     session, card.grabId, now);
    transaction.commit();
}

GatewayResponse PrimeRoom::answer(const ReadCase::Primed& request) {
    const double now = secondsOf(m_clock());
    const std::string scope = m_scopes.scopeOf(request.session, request.cwd);
    AnswerCase::Primed primed;
    for (const Found& found : relevant(request.prompt, scope)) {
        if (primed._0.size() == mostCards)
            break;
        const auto memory = m_documents.find(found.number);
        if (!memory || (request.session && wasTold(*request.session, memory->id)))
            continue;
        primed._0.push_back({.when = LocalTime::minute(memory->at),
                             .whenRelative = LocalTime::ago(memory->at, now),
                             .chapter = memory->scope,
                             .gist = memory->title,
                             .evidence = DocumentCard::beginning(memory->body, 240),
                             .grabId = memory->id});
    }
    if (request.countsPrompt && request.session && !primed._0.empty())
        tell(*request.session, primed._0);
    return primed;
}

} // namespace wendlow
