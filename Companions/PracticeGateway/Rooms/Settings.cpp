#include "Settings.h"

namespace wendlow {

std::string_view Settings::schema() {
    return "CREATE TABLE IF NOT EXISTS settings "
           "(name TEXT PRIMARY KEY, value TEXT NOT NULL) WITHOUT ROWID;";
}

std::optional<std::string> Settings::value(std::string_view name) {
    Statement value = m_database.prepare("SELECT value FROM settings WHERE name = ?");
    return value.bind(name).step() ? std::optional(value.text(0)) : std::nullopt;
}

void Settings::set(std::string_view name, std::string_view value) {
    m_database.run("INSERT OR REPLACE INTO settings VALUES (?, ?)", name, value);
}

void Settings::remove(std::string_view name) {
    m_database.run("DELETE FROM settings WHERE name = ?", name);
}

bool Settings::flag(std::string_view name, bool usual) {
    const auto kept = value(name);
    return kept ? *kept == "on" : usual;
}

} // namespace wendlow
