// Reading one setting: a value of an open key, against the same row by a prepared statement.
#include "workload.h"

#include "corekit/platform/Registry.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <sqlite3.h>

namespace {
std::string Scratch()
{
    const char* folder = std::getenv("BENCH_SCRATCH");
    return folder ? folder : "/tmp";
}

const std::vector<std::string>& Names()
{
    static const auto names = [] {
        std::vector<std::string> all;
        for (const workload::SettingPath& path : workload::settingPaths(workload::settingsTree(), 200))
            all.push_back(path.section + "." + path.child + "." + path.name);
        return all;
    }();
    return names;
}

HKEY FilledKey()
{
    static const HKEY key = [] {
        setenv("COREKIT_HOME", (Scratch() + "/registry").c_str(), 1);
        HKEY made = nullptr;
        RegCreateKeyExA(HKEY_LOCAL_MACHINE, "Software\\Bench", 0, nullptr, 0, 0x2001F, nullptr, &made,
                        nullptr);
        for (const std::string& name : Names())
            RegSetValueExA(made, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(name.c_str()),
                           static_cast<DWORD>(name.size() + 1));
        return made;
    }();
    return key;
}

class Table {
public:
    Table()
    {
        sqlite3_open((Scratch() + "/peer.db").c_str(), &m_database);
        Run("PRAGMA journal_mode = WAL");
        Run("PRAGMA synchronous = NORMAL");
        Run("CREATE TABLE IF NOT EXISTS items(key INTEGER, name TEXT, type INTEGER, data, UNIQUE(key, "
            "name))");
        m_read = Prepare("SELECT type, data FROM items WHERE key = ?1 AND name = ?2");
        m_write = Prepare("INSERT OR REPLACE INTO items VALUES(?1, ?2, 1, ?3)");
        for (const std::string& name : Names()) Write(name, name);
    }
    ~Table()
    {
        sqlite3_finalize(m_read);
        sqlite3_finalize(m_write);
        sqlite3_close(m_database);
    }

    int Read(const std::string& name, char* buffer)
    {
        sqlite3_bind_int(m_read, 1, 7);
        sqlite3_bind_text(m_read, 2, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
        int size = 0;
        if (sqlite3_step(m_read) == SQLITE_ROW) {
            size = sqlite3_column_bytes(m_read, 1);
            std::copy_n(static_cast<const char*>(sqlite3_column_blob(m_read, 1)), size, buffer);
        }
        sqlite3_reset(m_read);
        return size;
    }
    void Write(const std::string& name, const std::string& value)
    {
        sqlite3_bind_int(m_write, 1, 7);
        sqlite3_bind_text(m_write, 2, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
        sqlite3_bind_text(m_write, 3, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
        sqlite3_step(m_write);
        sqlite3_reset(m_write);
    }

private:
    void Run(const char* sql) { sqlite3_exec(m_database, sql, nullptr, nullptr, nullptr); }
    sqlite3_stmt* Prepare(const char* sql)
    {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(m_database, sql, -1, &statement, nullptr);
        return statement;
    }

    sqlite3* m_database = nullptr;
    sqlite3_stmt* m_read = nullptr;
    sqlite3_stmt* m_write = nullptr;
};

void Read(benchmark::State& state)
{
    const HKEY key = FilledKey();
    std::size_t next = 0;
    BYTE buffer[256];
    for (auto _ : state) {
        const std::string& name = Names()[next++ % Names().size()];
        DWORD size = sizeof buffer;
        if (RegQueryValueExA(key, name.c_str(), nullptr, nullptr, buffer, &size) != 0)
            state.SkipWithError("read");
        benchmark::DoNotOptimize(buffer);
    }
    state.SetItemsProcessed(state.iterations());
}

void SqliteRead(benchmark::State& state)
{
    Table table;
    std::size_t next = 0;
    char buffer[256];
    for (auto _ : state) {
        if (table.Read(Names()[next++ % Names().size()], buffer) == 0) state.SkipWithError("read");
        benchmark::DoNotOptimize(buffer);
    }
    state.SetItemsProcessed(state.iterations());
}

void Write(benchmark::State& state)
{
    const HKEY key = FilledKey();
    std::size_t next = 0;
    for (auto _ : state) {
        const std::string& name = Names()[next++ % Names().size()];
        if (RegSetValueExA(key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(name.c_str()),
                           static_cast<DWORD>(name.size() + 1)) != 0)
            state.SkipWithError("write");
    }
    state.SetItemsProcessed(state.iterations());
}

void SqliteWrite(benchmark::State& state)
{
    Table table;
    std::size_t next = 0;
    for (auto _ : state) {
        const std::string& name = Names()[next++ % Names().size()];
        table.Write(name, name);
    }
    state.SetItemsProcessed(state.iterations());
}
} // namespace

BENCHMARK(Read)->Name("registry/read/corekit");
BENCHMARK(SqliteRead)->Name("registry/read/sqlite");
BENCHMARK(Write)->Name("registry/write/corekit");
BENCHMARK(SqliteWrite)->Name("registry/write/sqlite");
BENCHMARK_MAIN();
