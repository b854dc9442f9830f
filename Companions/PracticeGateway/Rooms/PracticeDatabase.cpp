#include "PracticeDatabase.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include "ClientStoreMode.h"
#include "DatabaseError.h"

namespace wendlow {
namespace {

/// SQLite would make the file readable for everybody; its two companions take over the file's mode.
std::expected<void, std::string> makePrivate(const std::filesystem::path& path) {
    if (const auto made = ClientStoreMode::createFolder(path.parent_path()); !made)
        return std::unexpected(made.error().message());
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, ClientStoreMode::file);
    if (file < 0)
        return std::unexpected(std::strerror(errno));
    ::close(file);
    return {};
}

} // namespace

std::expected<std::unique_ptr<PracticeDatabase>, std::string>
PracticeDatabase::open(const std::filesystem::path& path) try {
    const auto failure = [&](std::string_view why) {
        return std::unexpected(fmt::format("{} could not be opened — {}", path.string(), why));
    };
    if (const auto made = makePrivate(path); !made)
        return failure(made.error());
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    std::unique_ptr<PracticeDatabase> database(new PracticeDatabase(handle));
    if (result != SQLITE_OK)
        return failure(sqlite3_errmsg(handle));
    try {
        database->adopt();
    } catch (const DatabaseError& error) {
        return failure(error.what());
    }
    return database;
} catch (const std::exception& error) {
    return std::unexpected(error.what());
}

void PracticeDatabase::adopt() {
    sqlite3_busy_timeout(m_handle.get(), 2000);
    const auto figure = [this](std::string_view question) {
        Statement statement = prepare(question);
        return statement.step() ? statement.integer(0) : 0;
    };
    // Before the first byte is written: the path may be that of the product's own store.
    const std::int64_t version = figure("PRAGMA user_version");
    if (version != 0 && version != schemaVersion)
        throw DatabaseError(fmt::format("it has tables of version {}, and this practice gateway "
                                        "knows those of version {}",
                                        version, schemaVersion));
    if (figure("SELECT count(*) FROM sqlite_schema") != 0 &&
        figure("SELECT count(*) FROM sqlite_schema WHERE name = 'document_words'") == 0)
        throw DatabaseError("it holds the tables of another program");
    execute(
        "PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL; PRAGMA foreign_keys = ON;"
        "PRAGMA cache_size = -16384; PRAGMA mmap_size = 1073741824; PRAGMA temp_store = MEMORY");
    if (version == 0)
        execute(fmt::format("PRAGMA user_version = {}", schemaVersion));
}

void PracticeDatabase::execute(std::string_view sql) {
    const std::string text(sql);
    if (sqlite3_exec(m_handle.get(), text.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw DatabaseError(sqlite3_errmsg(m_handle.get()));
}

Transaction::Transaction(PracticeDatabase& database) : m_database(database) {
    m_database.execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    if (!m_open)
        return;
    sqlite3_exec(m_database.m_handle.get(), "ROLLBACK", nullptr, nullptr, nullptr);
    ++m_database.m_rollbacks;
}

void Transaction::commit() {
    m_database.execute("COMMIT");
    m_open = false;
}

} // namespace wendlow
