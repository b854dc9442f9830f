#include "OpenCode/OpenCodeSessionStore.h"

#include "ConfigFile/Disk.h"
#include "Say.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <functional>
#include <memory>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

#include <fmt/format.h>
#include <sqlite3.h>

namespace wendlow::OpenCodeSessionStore {

namespace {

constexpr auto busyTimeout = std::chrono::milliseconds(1500);

/// Whether a database keeps a write-ahead log, has nothing in it just now, and lacks the index that
/// whoever opens it makes: all of it is in its one file, and nobody is writing.
bool isAtRest(const Path& path) {
    // Where its header says which way of writing it is for, and which of reading.
    constexpr std::size_t ways = 18;
    constexpr char withLog = 2;
    std::array<char, ways + 2> header{};
    if (!std::ifstream(path, std::ios::binary).read(header.data(), header.size()))
        return false;
    if (header[ways] != withLog || header[ways + 1] != withLog ||
        Disk::exists(path.string() + "-shm"))
        return false;
    std::error_code none;
    const auto logged = std::filesystem::file_size(path.string() + "-wal", none);
    return none || logged == 0;
}

/// The path as SQLite wants it where more than a path is to be said. Opened so, a database at rest
/// is read as it lies, and the log's companion files, which a reader makes and cannot take away
/// again, are not made.
std::string immutable(const Path& path) {
    std::string uri = "file:";
    for (const char byte : path.string())
        uri += std::string_view("%?#").contains(byte)
                   ? fmt::format("%{:02X}", static_cast<unsigned char>(byte))
                   : std::string(1, byte);
    return uri + "?immutable=1";
}

/// A read-only connection, closed with the object.
class Database {
public:
    explicit Database(const Path& path, int furtherFlags = 0) {
        sqlite3* connection = nullptr;
        // Anything else than a file may keep whoever opens it waiting.
        if (Disk::kind(path) != Disk::Kind::file)
            return;
        const bool atRest = isAtRest(path);
        const std::string name = atRest ? immutable(path) : path.string();
        m_isOpen =
            sqlite3_open_v2(name.c_str(), &connection,
                            SQLITE_OPEN_READONLY | (atRest ? SQLITE_OPEN_URI : 0) | furtherFlags,
                            nullptr) == SQLITE_OK;
        m_connection.reset(connection); // one that failed has to be closed too, if there is any
    }

    bool isOpen() const { return m_isOpen; }
    sqlite3* get() const { return m_connection.get(); }
    /// What the last call failed for, or `otherwise` where there are no words for it.
    Refusal refusal(std::string otherwise) const {
        const char* words = m_connection ? sqlite3_errmsg(m_connection.get()) : nullptr;
        return {words != nullptr && *words != '\0' ? std::string(words) : std::move(otherwise)};
    }

private:
    struct Close {
        void operator()(sqlite3* connection) const { sqlite3_close(connection); }
    };

    std::unique_ptr<sqlite3, Close> m_connection;
    bool m_isOpen = false;
};

/// A prepared query, finalized with the object; that has to happen before its database goes.
class Query {
public:
    Query(const Database& database, const std::string& text) {
        sqlite3_stmt* statement = nullptr;
        m_isPrepared =
            sqlite3_prepare_v2(database.get(), text.c_str(), -1, &statement, nullptr) == SQLITE_OK;
        m_statement.reset(statement);
    }

    bool isPrepared() const { return m_isPrepared; }
    int step() { return sqlite3_step(m_statement.get()); }
    /// Text ends at its first NUL; NULL is empty. Valid until the next step.
    std::string_view text(int column) {
        const auto* bytes =
            reinterpret_cast<const char*>(sqlite3_column_text(m_statement.get(), column));
        return bytes == nullptr ? std::string_view() : std::string_view(bytes);
    }
    std::int64_t integer(int column) { return sqlite3_column_int64(m_statement.get(), column); }
    bool holds(int column, int type) {
        return sqlite3_column_type(m_statement.get(), column) == type;
    }

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
    bool m_isPrepared = false;
};

/// The first column of all rows; SQLite's code on any failure, whatever rows came before it.
std::expected<std::vector<std::string>, int> answers(const Path& path, const std::string& text) {
    const Database database(path);
    if (!database.isOpen())
        return std::unexpected(SQLITE_CANTOPEN);
    sqlite3_busy_timeout(database.get(), static_cast<int>(busyTimeout.count()));
    Query query(database, text);
    if (!query.isPrepared())
        return std::unexpected(sqlite3_errcode(database.get()));
    std::vector<std::string> rows;
    int status = query.step();
    for (; status == SQLITE_ROW; status = query.step())
        rows.emplace_back(query.text(0));
    if (status != SQLITE_DONE)
        return std::unexpected(status);
    return rows;
}

/// A look-up by a view into the row makes no string for a folder that is known already.
struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
};
using Times = std::unordered_map<std::string, std::int64_t, Hash, std::equal_to<>>;

/// The latest time of each folder.
class LatestTimes {
public:
    void record(std::string_view directory, std::int64_t time) {
        // Sessions of one folder come in runs.
        if (m_last == nullptr || m_last->first != directory) {
            auto known = m_times.find(directory);
            if (known == m_times.end())
                known = m_times.emplace(directory, time).first;
            m_last = &*known;
        }
        m_last->second = std::max(m_last->second, time);
    }
    Times finish() && { return std::move(m_times); }

private:
    Times m_times;
    Times::value_type* m_last = nullptr;
};

/// Takes in one row. False where it names no folder or no time.
bool take(Query& row, LatestTimes& times) {
    if (!row.holds(0, SQLITE_TEXT) || !row.holds(1, SQLITE_INTEGER))
        return false;
    const std::int64_t time = row.integer(1);
    const std::string_view directory = row.text(0);
    if (directory.empty() || time < 1)
        return false;
    times.record(directory, time);
    return true;
}

/// A number in a database can be later than every date.
FileDate date(std::int64_t milliseconds) {
    constexpr auto latest = std::chrono::floor<std::chrono::milliseconds>(FileDate::max());
    return FileDate(std::min(std::chrono::milliseconds(milliseconds), latest.time_since_epoch()));
}

std::vector<Sighting> sightings(Times times) {
    std::vector<Sighting> result;
    result.reserve(times.size());
    while (!times.empty()) {
        auto folder = times.extract(times.begin());
        result.push_back({std::move(folder.key()), date(folder.mapped())});
    }
    std::ranges::sort(result, [](const Sighting& a, const Sighting& b) {
        return std::tie(b.lastActivity, a.directory) < std::tie(a.lastActivity, b.directory);
    });
    return result;
}

} // namespace

std::optional<Writer> writer(const Path& database) {
    if (!Disk::exists(database))
        return std::nullopt;
    const auto tables = answers(database, "SELECT name FROM sqlite_master WHERE type = 'table' AND "
                                          "name IN ('session', 'session_v2')");
    if (!tables && (tables.error() == SQLITE_BUSY || tables.error() == SQLITE_LOCKED))
        return Writer::locked;
    if (!tables || tables->empty())
        return Writer::unknown;
    return std::ranges::find(*tables, "session_v2") != tables->end() ? Writer::opencode2
                                                                     : Writer::opencode1;
}

bool isOpenCode1StillUsed(const Path& database, FileDate now) {
    if (!Disk::exists(database))
        return false;
    const auto cutoff = std::chrono::floor<std::chrono::milliseconds>(now - std::chrono::days(7));
    const auto rows = answers(
        database, fmt::format("SELECT id FROM session WHERE time_updated > (SELECT time_updated "
                              "FROM kv WHERE key = 'migration.v1-v2') AND time_updated >= {} "
                              "LIMIT 1",
                              cutoff.time_since_epoch().count()));
    return rows && !rows->empty();
}

std::expected<Decoded, Refusal> read(const Path& path) {
    // Nobody else has this connection, and a lock around each look at each column would cost more
    // than the looks.
    const Database database(path, SQLITE_OPEN_NOMUTEX);
    if (!database.isOpen())
        return std::unexpected(database.refusal(say("it would not open")));
    Query query(database, "SELECT directory, time_updated FROM session_v2");
    if (!query.isPrepared())
        return std::unexpected(database.refusal(say("the session query would not prepare")));
    Decoded decoded;
    LatestTimes times;
    int status = query.step();
    for (; status == SQLITE_ROW; status = query.step())
        if (!take(query, times))
            ++decoded.skipped;
    if (status != SQLITE_DONE)
        return std::unexpected(database.refusal(say("a row would not read")));
    decoded.sightings = sightings(std::move(times).finish());
    return decoded;
}

} // namespace wendlow::OpenCodeSessionStore
