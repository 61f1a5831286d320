// A connection and prepared statements that close themselves; every failure is thrown as an SqliteError.
#pragma once

#include <cstdint>
#include <sqlite3.h>
#include <string>
#include <string_view>

namespace corekit::detail {

struct SqliteError {
    int code; // extended
};

class SqliteStatement {
public:
    SqliteStatement() = default;
    SqliteStatement(sqlite3* database, const char* sql);
    SqliteStatement(SqliteStatement&& other) noexcept : m_statement(other.m_statement)
    {
        other.m_statement = nullptr;
    }
    SqliteStatement& operator=(SqliteStatement&& other) noexcept;
    ~SqliteStatement() { sqlite3_finalize(m_statement); }

    // Bound bytes must live until the next Reset.
    SqliteStatement& Bind(int index, std::int64_t value);
    SqliteStatement& BindText(int index, std::string_view text);
    SqliteStatement& BindBytes(int index, std::string_view bytes);
    // True while there is a row; the statement resets itself when there is none.
    bool Step();
    void Run()
    {
        while (Step()) {
        }
    }
    void Reset() { sqlite3_reset(m_statement); }

    std::int64_t Number(int column) const { return sqlite3_column_int64(m_statement, column); }
    bool IsText(int column) const { return sqlite3_column_type(m_statement, column) == SQLITE_TEXT; }
    std::string_view Bytes(int column) const; // until the next Step

private:
    sqlite3_stmt* m_statement = nullptr;
};

// Runs a statement to its first row and leaves it reset at the end of the scope.
class SqliteRow {
public:
    explicit SqliteRow(SqliteStatement& statement) : m_statement(statement), m_found(statement.Step()) {}
    ~SqliteRow() { m_statement.Reset(); }
    SqliteRow(const SqliteRow&) = delete;
    SqliteRow& operator=(const SqliteRow&) = delete;

    explicit operator bool() const { return m_found; }
    const SqliteStatement* operator->() const { return &m_statement; }

private:
    SqliteStatement& m_statement;
    bool m_found;
};

} // namespace corekit::detail
