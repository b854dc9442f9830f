#pragma once

#include <cstdint>
#include <expected>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include <sqlite3.h>

#include "Statement.h"

namespace wendlow {

/// The one file of the practice gateway. Private to the person; what was committed survives the
/// end of the process, however it comes. One thread at a time. But for `open`, everything throws
/// `DatabaseError`.
class PracticeDatabase {
public:
    /// Grows with every change of a table that an older file would not have.
    static constexpr int schemaVersion = 1;

    /// Opens the file, making it (0600) and its folder (0700) where they lack. The error is a
    /// sentence; a file of another schema version is one, and so is another program's, of which
    /// nothing is changed.
    static std::expected<std::unique_ptr<PracticeDatabase>, std::string>
    open(const std::filesystem::path& path);

    /// Makes the tables of these rooms where they lack. A room's `schema()` is SQL that may run
    /// again and again; a room stands behind those whose tables it refers to.
    template<class... Rooms> void install() { (execute(Rooms::schema()), ...); }

    Statement prepare(std::string_view sql) { return {m_handle.get(), sql}; }
    /// Prepares, binds and runs in one go; for what gives no rows.
    template<class... Values> void run(std::string_view sql, const Values&... values) {
        prepare(sql).bind(values...).run();
    }
    /// Any number of statements, without parameters.
    void execute(std::string_view sql);

    std::filesystem::path file() const { return sqlite3_db_filename(m_handle.get(), "main"); }
    std::int64_t lastRowID() const { return sqlite3_last_insert_rowid(m_handle.get()); }
    /// Rows that the last statement changed.
    std::int64_t changes() const { return sqlite3_changes64(m_handle.get()); }
    /// Grows whenever changes were taken back: what was derived from them is to be read again.
    std::int64_t rollbacks() const { return m_rollbacks; }

private:
    friend class Transaction;

    struct Close {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    };

    explicit PracticeDatabase(sqlite3* handle) : m_handle(handle) {}
    void adopt();

    std::unique_ptr<sqlite3, Close> m_handle;
    std::int64_t m_rollbacks = 0;
};

/// All that is written while it lives, or none of it. They do not nest.
class Transaction {
public:
    explicit Transaction(PracticeDatabase& database);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    /// Takes back what was not committed.
    ~Transaction();

    void commit();

private:
    PracticeDatabase& m_database;
    bool m_open = true;
};

} // namespace wendlow
