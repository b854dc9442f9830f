// The ranking of the worlds without a daemon beside an SQLite full-text table in memory, over the
// same made-up memories.

#include "Ranking/EditorRelevance.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <random>
#include <string>

namespace wendlow::benchmarks {

namespace {

constexpr int memories = 100'000;

/// Texts whose words are as unevenly common as a language's.
EditorMemoryHits generatedMemories() {
    std::mt19937 random(7); // NOLINT(cert-msc51-cpp): the same texts in every run
    std::uniform_real_distribution<double> share(0, 1);
    const auto words = [&](int count) {
        std::string text;
        for (int index = 0; index < count; ++index) {
            const double rank = share(random);
            fmt::format_to(std::back_inserter(text), "word{} ",
                           static_cast<int>(20'000 * rank * rank * rank));
        }
        return text;
    };
    EditorMemoryHits hits;
    for (int index = 0; index < memories; ++index)
        hits.push_back({.memory = {.id = std::to_string(index),
                                   .type = {},
                                   .title = words(6),
                                   .why = words(12),
                                   .body = words(40)},
                        .scopeID = {}});
    return hits;
}

const EditorMemoryHits& corpus() {
    static const EditorMemoryHits hits = generatedMemories();
    return hits;
}

constexpr const char* query = "word3 word1200 word19000";

struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
};
using Database = std::unique_ptr<sqlite3, Close>;

/// A statement of `sql`, which is sound.
sqlite3_stmt* statement(sqlite3* database, const char* sql) {
    sqlite3_stmt* prepared = nullptr;
    sqlite3_prepare_v2(database, sql, -1, &prepared, nullptr);
    return prepared;
}

Database filledTable() {
    sqlite3* opened = nullptr;
    sqlite3_open(":memory:", &opened);
    Database database(opened);
    sqlite3_exec(opened, "CREATE VIRTUAL TABLE memory USING fts5(title, why, body); BEGIN", nullptr,
                 nullptr, nullptr);
    sqlite3_stmt* const insert = statement(opened, "INSERT INTO memory VALUES (?, ?, ?)");
    for (const auto& [memory, scopeID, score] : corpus()) {
        int column = 0;
        for (const std::string* const text : {&memory.title, &memory.why, &memory.body})
            sqlite3_bind_text(insert, ++column, text->data(), static_cast<int>(text->size()),
                              SQLITE_STATIC);
        sqlite3_step(insert);
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    sqlite3_exec(opened, "COMMIT", nullptr, nullptr, nullptr);
    return database;
}

void buildBM25(benchmark::State& state) {
    corpus();
    for (auto _ : state)
        benchmark::DoNotOptimize(EditorRelevance(corpus()));
}
BENCHMARK(buildBM25)->Unit(benchmark::kMillisecond);

void buildFTS5(benchmark::State& state) {
    corpus();
    for (auto _ : state)
        benchmark::DoNotOptimize(filledTable());
}
BENCHMARK(buildFTS5)->Unit(benchmark::kMillisecond);

void queryBM25(benchmark::State& state) {
    const EditorRelevance relevance(corpus());
    for (auto _ : state)
        benchmark::DoNotOptimize(relevance.scores(query));
    state.counters["found"] = static_cast<double>(relevance.scores(query).size());
}
BENCHMARK(queryBM25)->Unit(benchmark::kMillisecond);

void queryFTS5(benchmark::State& state) {
    const Database database = filledTable();
    sqlite3_stmt* const select =
        statement(database.get(), "SELECT rowid, bm25(memory) FROM memory WHERE memory MATCH "
                                  "'word3 OR word1200 OR word19000'");
    std::int64_t found = 0;
    for (auto _ : state) {
        found = 0;
        while (sqlite3_step(select) == SQLITE_ROW) {
            benchmark::DoNotOptimize(sqlite3_column_double(select, 1));
            ++found;
        }
        sqlite3_reset(select);
    }
    state.counters["found"] = static_cast<double>(found);
    sqlite3_finalize(select);
}
BENCHMARK(queryFTS5)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace wendlow::benchmarks
