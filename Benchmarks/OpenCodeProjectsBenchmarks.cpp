// How long the list of OpenCode's projects takes from a million session rows, beside a bare program
// that steps through the same query and looks at no column. `MB` is the memory that one pass needed
// beyond what was there before.

#include "OpenCode/OpenCodeInventory.h"
#include "Support/PeakMemory.h"
#include "TemporaryHome.h"

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace wendlow::benchmarks {

namespace {

constexpr std::int64_t rowCount = 1'000'000;

sqlite3* open(const std::filesystem::path& path, int flags) {
    sqlite3* database = nullptr;
    if (sqlite3_open_v2(path.c_str(), &database, flags, nullptr) != SQLITE_OK)
        throw std::runtime_error("the database could not be opened");
    return database;
}

/// A session store with as many columns as OpenCode's rows have weight: each row is of some 250
/// bytes. Sessions of one folder come in runs, as people work.
class Store {
public:
    explicit Store(std::int64_t folders) {
        std::filesystem::create_directories(paths().dataDirectory);
        sqlite3* database =
            open(paths().sessionDatabase(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        const std::string rows =
            "CREATE TABLE session_v2(id TEXT PRIMARY KEY, project_id TEXT, directory TEXT, title "
            "TEXT, time_created INTEGER, time_updated INTEGER);"
            "BEGIN; WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < " +
            std::to_string(rowCount - 1) +
            ") INSERT INTO session_v2 SELECT printf('ses_%026d', i), printf('%040d', i / 7), "
            "'/home/me/projects/client-' || (i / 7 % " +
            std::to_string(folders) +
            "), printf('Sort out what the %d. test complains about when it is run again', i), "
            "1700000000000 + i, 1700000000000 + i * 7919 % 1000003 FROM n; COMMIT";
        if (sqlite3_exec(database, rows.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(database));
        sqlite3_close(database);
    }

    OpenCodePaths paths() const {
        return OpenCodePaths::under(m_home.path(), m_home / "Wendlow.app");
    }

private:
    testing::TemporaryHome m_home;
};

const Store& store(std::int64_t folders) {
    static const Store few(40);
    static const Store many(2'000);
    return folders == 40 ? few : many;
}

std::size_t countProjects(const OpenCodePaths& paths) {
    return OpenCodeInventory::projects(paths).projects.size();
}

void projects(benchmark::State& state) {
    const OpenCodePaths paths = store(state.range(0)).paths();
    const auto peak = peakMemory([&] { benchmark::DoNotOptimize(countProjects(paths)); });
    for (auto round : state) {
        (void)round;
        if (std::cmp_not_equal(countProjects(paths), state.range(0)))
            state.SkipWithError("the projects were not all found");
    }
    state.counters["MB"] = static_cast<double>(peak) / 1e6;
}
BENCHMARK(projects)->ArgName("folders")->Arg(40)->Arg(2'000)->Unit(benchmark::kMillisecond);

void bareStep(benchmark::State& state) {
    const OpenCodePaths paths = store(state.range(0)).paths();
    for (auto round : state) {
        (void)round;
        sqlite3* database = open(paths.sessionDatabase(), SQLITE_OPEN_READONLY);
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(database, "SELECT directory, time_updated FROM session_v2", -1,
                           &statement, nullptr);
        std::int64_t rows = 0;
        while (sqlite3_step(statement) == SQLITE_ROW)
            ++rows;
        if (rows != rowCount)
            state.SkipWithError("the rows were not all read");
        sqlite3_finalize(statement);
        sqlite3_close(database);
    }
}
BENCHMARK(bareStep)->ArgName("folders")->Arg(40)->Arg(2'000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace wendlow::benchmarks
