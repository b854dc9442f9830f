#include "SearchRoom.h"

#include <algorithm>
#include <span>
#include <tuple>
#include <utility>

#include <fmt/format.h>

#include "FilterText.h"
#include "RawString.h"
#include "ScopePath.h"
#include "WordQuery.h"

namespace wendlow {
namespace {

constexpr std::int64_t usualLimit = 50;

constexpr std::size_t index(std::int64_t number) {
    return static_cast<std::size_t>(number);
}

/// Whether the answer is less than the store: what the rail may not take for the whole.
bool narrows(const ReadCase::TextBrowse& ask, bool searched) {
    return searched || !ask.filters.empty() ||
           std::ranges::any_of(ask.scopes,
                               [](const std::string& scope) { return scope != ScopePath::root; });
}

} // namespace

// A word in the title says more than one in the reason, and that more than one in the body.
SearchRoom::SearchRoom(DocumentStore& documents)
    : m_documents(documents), m_matching(documents.database().prepare(
                                  "SELECT rowid FROM document_words WHERE document_words MATCH ?")),
      m_ranking(documents.database().prepare(
          "SELECT rowid, bm25(document_words, 8.0, 2.0, 1.0, 2.0) FROM document_words "
          "WHERE document_words MATCH ?")),
      m_reading(documents.database().prepare(
          "SELECT id, title, app, abstract, files, file_count, framed, session_tool, "
          "CASE kind WHEN 0 THEN NULL ELSE body END FROM documents WHERE number = ?")) {}

GatewayResponse SearchRoom::answer(const ReadCase::TextBrowse& request) {
    const auto kind = fromRawString<DocumentKind>(request.kind.value_or(""));
    if (request.kind && !kind)
        return AnswerCase::Failure{
            fmt::format("“{}” is no kind of thing that can be browsed; those are memory, moment "
                        "and meeting",
                        *request.kind)};
    const auto match = WordQuery::allOf(request.term.value_or(""));
    auto order = fromRawString<BrowseOrder>(request.order.value_or(""))
                     .value_or(match ? BrowseOrder::relevance : BrowseOrder::newest);
    if (!match && order == BrowseOrder::relevance)
        order = BrowseOrder::newest;

    BrowseCensus census(m_documents.facets(), request, kind);
    findHits(match, order, census);
    const std::int64_t count = std::ssize(m_hits);
    const std::int64_t from = std::clamp<std::int64_t>(request.offset, 0, count);
    const std::int64_t limit = std::max<std::int64_t>(request.limit.value_or(usualLimit), 1);
    const std::int64_t to = from + std::min(limit, count - from);
    sortBeginning(to, order);

    TextBrowseAnswer answer;
    answer.ready = true;
    census.report(answer);
    const auto words = WordQuery::words(request.term.value_or(""));
    for (const Hit& hit : std::span(m_hits).subspan(index(from), index(to - from)))
        answer.rows.push_back(row(hit, words));
    answer.order = rawString(order);
    answer.narrowed = narrows(request, match.has_value());
    return AnswerCase::TextBrowse{std::move(answer)};
}

void SearchRoom::findHits(const std::optional<std::string>& match, BrowseOrder order,
                          BrowseCensus& census) {
    const auto rows = m_documents.facets().rows();
    m_hits.clear();
    if (!match) {
        for (std::size_t number = 0; number < rows.size(); ++number)
            if (rows[number].present && census.count(rows[number]))
                m_hits.push_back({static_cast<std::int64_t>(number), rows[number].at});
        return;
    }
    const bool ranked = order == BrowseOrder::relevance;
    Statement& searching = ranked ? m_ranking : m_matching;
    searching.bind(*match);
    double best = 0;
    while (searching.step()) {
        const std::int64_t number = searching.integer(0);
        // What the index calls better is more negative.
        const double score = ranked ? -searching.real(1) : 0;
        const auto& facets = rows[index(number)];
        if (!census.count(facets))
            continue;
        m_hits.push_back({number, facets.at, score});
        best = std::max(best, score);
    }
    if (best > 0)
        for (Hit& hit : m_hits)
            hit.score /= best;
}

void SearchRoom::sortBeginning(std::int64_t count, BrowseOrder order) {
    const auto before = [order](const Hit& left, const Hit& right) {
        if (order == BrowseOrder::oldest)
            return std::tie(left.at, left.number) < std::tie(right.at, right.number);
        // The score is 0 throughout where it does not rule.
        return std::tie(left.score, left.at, left.number) >
               std::tie(right.score, right.at, right.number);
    };
    std::ranges::partial_sort(m_hits, m_hits.begin() + count, before);
}

TextBrowseRow SearchRoom::row(const Hit& hit, const std::vector<std::string>& words) {
    const DocumentFacets& facets = m_documents.facets();
    const DocumentFacets::Row& figures = facets.row(hit.number);
    m_reading.bind(hit.number);
    m_reading.step();
    TextBrowseRow row{.id = m_reading.text(0),
                      .type = facets.types().text(figures.type),
                      .scope = facets.scopes().text(figures.scope),
                      .title = m_reading.text(1),
                      .at = figures.at,
                      .filters = {},
                      .score = hit.score,
                      .app = m_reading.textIfAny(2),
                      .abstract = m_reading.textIfAny(3),
                      .fileCount = m_reading.integerIfAny(5),
                      .framed = m_reading.boolean(6),
                      .sessionTool = m_reading.textIfAny(7)};
    for (const std::uint32_t pair : facets.pairsOf(figures.filters))
        row.filters.push_back(
            {facets.keys().text(facets.pairs()[pair].key), facets.pairs()[pair].value});
    if (auto files = FilterText::readList(m_reading.view(4)); !files.empty())
        row.files = std::move(files);
    if (!m_reading.isNull(8))
        row.passage = WordQuery::passage(m_reading.view(8), words);
    m_reading.reset();
    return row;
}

GatewayResponse SearchRoom::answer(const ReadCase::TextIndexAudit& request) {
    PracticeDatabase& database = m_documents.database();
    const auto figure = [&](std::string_view sql) {
        Statement statement = database.prepare(sql);
        statement.step();
        return statement.integer(0);
    };
    if (request.reindex)
        database.execute("INSERT INTO document_words(document_words) VALUES('rebuild')");
    TextIndexAuditAnswer audit{
        .ready = true,
        .rows = figure("SELECT count(*) FROM document_words_docsize"),
        .memories = figure("SELECT count(*) FROM documents WHERE kind = 0"),
        .moments = figure("SELECT count(*) FROM documents WHERE kind = 1"),
        .meetings = figure("SELECT count(*) FROM documents WHERE kind = 2"),
        .megabytes = figure("SELECT sum(length(block)) / 1000000 FROM document_words_data")};
    audit.pending = audit.memories + audit.moments + audit.meetings - audit.rows;
    return AnswerCase::TextIndexAudit{audit};
}

} // namespace wendlow
