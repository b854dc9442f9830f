// The store browser's question beside SQLite's own full-text query of the same words, in the same
// file: a hundred thousand memories.

#include "PracticeDatabase.h"
#include "PracticeRooms.h"
#include "WordQuery.h"

#include <cstdlib>
#include <filesystem>
#include <string>

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <unistd.h>

namespace wendlow {
namespace {

/// A filled database, made anew for each run of the program and removed at its end.
class FilledDatabase {
public:
    FilledDatabase()
        : m_folder(std::filesystem::temp_directory_path() /
                   fmt::format("wendlow-browse-{}", ::getpid())) {
        rooms =
            PracticeRooms::open(file(), [] { return std::chrono::system_clock::now(); }).value();
        rooms->fill(FillSize::power).value();
        bare = PracticeDatabase::open(file()).value();
    }
    FilledDatabase(const FilledDatabase&) = delete;
    FilledDatabase& operator=(const FilledDatabase&) = delete;
    ~FilledDatabase() { std::filesystem::remove_all(m_folder); }

    std::filesystem::path file() const { return m_folder / "data.db"; }

    std::unique_ptr<PracticeRooms> rooms;
    std::unique_ptr<PracticeDatabase> bare; ///< a connection of its own

private:
    std::filesystem::path m_folder;
};

FilledDatabase& database() {
    static FilledDatabase filled;
    return filled;
}

enum class Filters { none, three };

ReadCase::TextBrowse question(const std::string& term, Filters filters) {
    ReadCase::TextBrowse ask{
        .term = term, .scopes = {}, .limit = 50, .kind = "memory", .filters = {}};
    if (filters == Filters::three) {
        ask.scopes = {"/studio"};
        ask.filters = {{"source", FilterValue(std::string("review"))},
                       {"source", FilterValue(std::string("meeting"))},
                       {"area", FilterValue(std::string("storage"))}};
    }
    return ask;
}

constexpr std::string_view fiftyBest = "SELECT rowid FROM document_words "
                                       "WHERE document_words MATCH ? ORDER BY rank LIMIT 50";
constexpr std::string_view unranked = "SELECT rowid FROM document_words "
                                      "WHERE document_words MATCH ?";

/// SQLite's own query of the same words, and nothing else.
void bareQuery(benchmark::State& state, const std::string& term, std::string_view sql) {
    Statement query = database().bare->prepare(sql);
    const std::string match = WordQuery::allOf(term).value();
    for (auto _ : state) {
        query.bind(match);
        std::int64_t sum = 0;
        while (query.step())
            sum += query.integer(0);
        benchmark::DoNotOptimize(sum);
    }
}

void textBrowse(benchmark::State& state, const std::string& term, Filters filters) {
    SearchRoom room(database().rooms->documents());
    const ReadCase::TextBrowse ask = question(term, filters);
    std::int64_t total = 0;
    for (auto _ : state) {
        const GatewayResponse answer = room.answer(ask);
        total = std::get<AnswerCase::TextBrowse>(answer)._0.total;
    }
    state.counters["total"] = static_cast<double>(total);
}

void open(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(PracticeRooms::open(
            database().file(), [] { return std::chrono::system_clock::now(); }));
}

// A frequent word, two words, a rare word and its first three letters.
#define WENDLOW_BROWSE(name, term)                                                                 \
    BENCHMARK_CAPTURE(bareQuery, name, term, fiftyBest)->Unit(benchmark::kMicrosecond);            \
    BENCHMARK_CAPTURE(textBrowse, name, term, Filters::none)->Unit(benchmark::kMicrosecond);       \
    BENCHMARK_CAPTURE(textBrowse, name##_filtered, term, Filters::three)                           \
        ->Unit(benchmark::kMicrosecond)

WENDLOW_BROWSE(frequent, "backup");
WENDLOW_BROWSE(two_words, "backup checksum");
WENDLOW_BROWSE(rare, "kestrel");
WENDLOW_BROWSE(three_letters, "kes");
WENDLOW_BROWSE(two_letters, "ke");
BENCHMARK_CAPTURE(bareQuery, frequent_unranked, "backup", unranked)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(textBrowse, everything, "", Filters::none)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(textBrowse, everything_filtered, "", Filters::three)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(open)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace wendlow
