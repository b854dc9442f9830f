#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <sqlite3.h>

namespace wendlow {

/// A prepared statement. Parameters and columns count from 0. Throws `DatabaseError`. Text that a
/// column gives as a view stands until the next step, bind or reset.
class Statement {
public:
    Statement(sqlite3* database, std::string_view sql);

    /// Starts anew with these parameters, in order. Texts are taken by reference: they must live
    /// until the last step.
    template<class... Values> Statement& bind(const Values&... values) {
        reset();
        int index = 0;
        (bindOne(++index, values), ...);
        return *this;
    }

    /// Goes to the next row; false when there is none, and the statement is reset.
    bool step();
    /// Takes every step; for what gives no rows.
    void run();
    void reset() noexcept;

    std::int64_t integer(int column) const;
    bool boolean(int column) const { return integer(column) != 0; }
    double real(int column) const;
    std::string_view view(int column) const;
    std::string text(int column) const { return std::string(view(column)); }
    bool isNull(int column) const;
    std::optional<std::string> textIfAny(int column) const;
    std::optional<std::int64_t> integerIfAny(int column) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    void bindOne(int index, std::int64_t value);
    void bindOne(int index, int value) { bindOne(index, std::int64_t{value}); }
    void bindOne(int index, bool value) { bindOne(index, std::int64_t{value}); }
    void bindOne(int index, double value);
    void bindOne(int index, std::string_view value);
    void bindOne(int index, const std::string& value) { bindOne(index, std::string_view(value)); }
    void bindOne(int index, const char* value) { bindOne(index, std::string_view(value)); }
    void bindOne(int index, std::nullopt_t value);
    template<class T> void bindOne(int index, const std::optional<T>& value) {
        if (value)
            bindOne(index, *value);
        else
            bindOne(index, std::nullopt);
    }
    void check(int result) const;

    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

} // namespace wendlow
