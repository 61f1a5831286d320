// The registry's file: an SQLite database in WAL mode, its statements, and the news of other people's writes.
//
// Not for two threads at once, nor across a fork.
#pragma once

#include "corekit/platform/posix/registry/Sqlite.h"

#include <array>
#include <chrono>
#include <memory>
#include <string>
#include <sys/types.h>

namespace corekit::detail {

class RegistryDatabase {
public:
    // The keys that are always there; no other key has a number this low.
    static constexpr std::int64_t machineHive = 1, userHive = 2;

    // Null if the file is missing and need not be made. Throws SqliteError; a file that is not ours counts
    // as damaged. Without the right to write, the connection only reads.
    static std::unique_ptr<RegistryDatabase> Open(const std::string& path, bool make);
    ~RegistryDatabase();
    RegistryDatabase(const RegistryDatabase&) = delete;
    RegistryDatabase& operator=(const RegistryDatabase&) = delete;

    // False if anyone has committed since the last call; what is read after a call is at least as new as it.
    // Costs no statement: it looks at the header in shared memory from which SQLite itself learns the same.
    bool Unchanged();
    dev_t Device() const { return m_device; }
    ino_t Inode() const { return m_inode; }
    std::int64_t RowsChanged() const { return sqlite3_changes64(m_database); }
    std::int64_t LastRow() const { return sqlite3_last_insert_rowid(m_database); }

    // A write transaction; undone unless committed.
    class Transaction {
    public:
        explicit Transaction(RegistryDatabase& database) : m_database(&database) { database.m_begin.Run(); }
        ~Transaction();
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;
        void Commit();

    private:
        RegistryDatabase* m_database;
    };

    // Parameters are in the source, numbered.
    SqliteStatement findKey, findValue, keyDepth, listKeys, listValues;
    SqliteStatement insertKey, touchKey, touchParent, deleteKey, deleteValues, insertValue, deleteValue,
        childOf;

private:
    explicit RegistryDatabase(const std::string& path) : m_path(path) {}
    void Connect(bool mayWrite);
    void Execute(const char* sql);
    bool WaitsOn(int tries);
    void UseWriteAheadLog();
    void MakeTables();
    void DropVolatileKeys();
    void PrepareStatements();
    void FindHeader();

    static constexpr std::size_t headerWords = 12; // both copies of the shared header

    const std::string m_path;
    sqlite3* m_database = nullptr;
    SqliteStatement m_begin, m_commit, m_rollback, m_dataVersion;
    const volatile std::uint64_t* m_header = nullptr;
    std::array<std::uint64_t, headerWords> m_seen{};
    std::int64_t m_seenVersion = -1;
    std::chrono::steady_clock::time_point m_waitsUntil;
    dev_t m_device = 0;
    ino_t m_inode = 0;
};

// What marks a volatile key: it belongs to this start of the machine.
const std::string& bootId();

} // namespace corekit::detail
