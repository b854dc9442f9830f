#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "PracticeDatabase.h"

namespace wendlow {

/// What is kept by name and is no thing of the memory. Throws `DatabaseError`.
class Settings {
public:
    static std::string_view schema();

    explicit Settings(PracticeDatabase& database) : m_database(database) {}

    std::optional<std::string> value(std::string_view name);
    void set(std::string_view name, std::string_view value);
    void remove(std::string_view name);

    /// What stands as "on", or `usual` where nothing was ever set.
    bool flag(std::string_view name, bool usual);
    void setFlag(std::string_view name, bool value) { set(name, value ? "on" : "off"); }

private:
    PracticeDatabase& m_database;
};

} // namespace wendlow
