#include "Statement.h"

#include "DatabaseError.h"

namespace wendlow {

Statement::Statement(sqlite3* database, std::string_view sql) {
    sqlite3_stmt* statement = nullptr;
    const int result = sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()),
                                          SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    if (result != SQLITE_OK)
        throw DatabaseError(sqlite3_errmsg(database));
    m_statement.reset(statement);
}

void Statement::check(int result) const {
    if (result != SQLITE_OK)
        throw DatabaseError(sqlite3_errmsg(sqlite3_db_handle(m_statement.get())));
}

bool Statement::step() {
    const int result = sqlite3_step(m_statement.get());
    if (result == SQLITE_ROW)
        return true;
    if (result == SQLITE_DONE) {
        reset();
        return false;
    }
    const DatabaseError error(sqlite3_errmsg(sqlite3_db_handle(m_statement.get())));
    // A statement left in the middle would hold its transaction open.
    reset();
    throw error;
}

void Statement::run() {
    while (step()) {
    }
}

void Statement::reset() noexcept {
    sqlite3_reset(m_statement.get());
}

std::int64_t Statement::integer(int column) const {
    return sqlite3_column_int64(m_statement.get(), column);
}

double Statement::real(int column) const {
    return sqlite3_column_double(m_statement.get(), column);
}

std::string_view Statement::view(int column) const {
    const void* bytes = sqlite3_column_blob(m_statement.get(), column);
    const int size = sqlite3_column_bytes(m_statement.get(), column);
    return {static_cast<const char*>(bytes), bytes == nullptr ? 0 : static_cast<std::size_t>(size)};
}

bool Statement::isNull(int column) const {
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}

std::optional<std::string> Statement::textIfAny(int column) const {
    return isNull(column) ? std::nullopt : std::optional(text(column));
}

std::optional<std::int64_t> Statement::integerIfAny(int column) const {
    return isNull(column) ? std::nullopt : std::optional(integer(column));
}

void Statement::bindOne(int index, std::int64_t value) {
    check(sqlite3_bind_int64(m_statement.get(), index, value));
}

void Statement::bindOne(int index, double value) {
    check(sqlite3_bind_double(m_statement.get(), index, value));
}

void Statement::bindOne(int index, std::string_view value) {
    // An empty view may have no address, and no address would bind NULL.
    const char* bytes = value.data() == nullptr ? "" : value.data();
    check(sqlite3_bind_text64(m_statement.get(), index, bytes, value.size(), SQLITE_STATIC,
                              SQLITE_UTF8));
}

void Statement::bindOne(int index, std::nullopt_t /*value*/) {
    check(sqlite3_bind_null(m_statement.get(), index));
}

} // namespace wendlow
