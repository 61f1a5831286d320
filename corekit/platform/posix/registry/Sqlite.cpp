#include "corekit/platform/posix/registry/Sqlite.h"

#include <utility>

namespace {
void check(int code)
{
    if (code != SQLITE_OK) throw corekit::detail::SqliteError{code};
}
} // namespace

namespace corekit::detail {

SqliteStatement::SqliteStatement(sqlite3* database, const char* sql)
{
    check(sqlite3_prepare_v3(database, sql, -1, SQLITE_PREPARE_PERSISTENT, &m_statement, nullptr));
}

SqliteStatement& SqliteStatement::operator=(SqliteStatement&& other) noexcept
{
    std::swap(m_statement, other.m_statement);
    return *this;
}

SqliteStatement& SqliteStatement::Bind(int index, std::int64_t value)
{
    check(sqlite3_bind_int64(m_statement, index, value));
    return *this;
}

SqliteStatement& SqliteStatement::BindText(int index, std::string_view text)
{
    check(sqlite3_bind_text64(m_statement, index, text.data() ? text.data() : "", text.size(), SQLITE_STATIC,
                              SQLITE_UTF8));
    return *this;
}

SqliteStatement& SqliteStatement::BindBytes(int index, std::string_view bytes)
{
    check(sqlite3_bind_blob64(m_statement, index, bytes.data() ? bytes.data() : "", bytes.size(),
                              SQLITE_STATIC));
    return *this;
}

bool SqliteStatement::Step()
{
    const int code = sqlite3_step(m_statement);
    if (code == SQLITE_ROW) return true;
    sqlite3_reset(m_statement);
    if (code != SQLITE_DONE) throw SqliteError{code};
    return false;
}

std::string_view SqliteStatement::Bytes(int column) const
{
    const void* data = sqlite3_column_blob(m_statement, column);
    const int size = sqlite3_column_bytes(m_statement, column);
    return data ? std::string_view(static_cast<const char*>(data), static_cast<std::size_t>(size))
                : std::string_view();
}

} // namespace corekit::detail
