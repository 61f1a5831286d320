#include "corekit/platform/posix/registry/RegistryDatabase.h"

#include "corekit/platform/DataFolder.h"
#include "corekit/platform/posix/files/Descriptor.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <fstream>
#include <map>
#include <sys/stat.h>
#include <thread>
#include <utility>

namespace {
using namespace std::chrono_literals;

constexpr int application = 0x434B5247; // "CKRG"
constexpr int formatVersion = 1;
constexpr auto patience = 5s; // how long another process may keep the file busy
// Who waited in vain does not wait as long again soon: a program reads a dozen settings when it starts.
constexpr auto impatience = 100ms;
constexpr auto remembered = 10s;

constexpr const char* tables = R"(
CREATE TABLE keys(
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  parent INTEGER NOT NULL, folded TEXT NOT NULL, name TEXT NOT NULL, class TEXT NOT NULL,
  depth INTEGER NOT NULL, changed INTEGER NOT NULL, boot TEXT,
  UNIQUE(parent, folded));
CREATE INDEX volatile_keys ON keys(boot) WHERE boot IS NOT NULL;
CREATE TABLE items(
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  key INTEGER NOT NULL, folded TEXT NOT NULL, name TEXT NOT NULL, type INTEGER NOT NULL, data NOT NULL,
  UNIQUE(key, folded));
INSERT INTO keys VALUES(1, 0, 'HKEY_LOCAL_MACHINE', 'HKEY_LOCAL_MACHINE', '', 0, 0, NULL);
INSERT INTO keys VALUES(2, 0, 'HKEY_CURRENT_USER', 'HKEY_CURRENT_USER', '', 0, 0, NULL);
PRAGMA application_id = 1129009735;
PRAGMA user_version = 1;
)";
static_assert(application == 1129009735);

std::int64_t askNumber(sqlite3* database, const char* sql)
{
    corekit::detail::SqliteStatement statement(database, sql);
    return statement.Step() ? statement.Number(0) : 0;
}
} // namespace

namespace corekit::detail {

const std::string& bootId()
{
    static const std::string id = [] {
        std::ifstream file("/proc/sys/kernel/random/boot_id");
        std::string text;
        std::getline(file, text);
        return text.empty() ? "unknown" : text;
    }();
    return id;
}

std::unique_ptr<RegistryDatabase> RegistryDatabase::Open(const std::string& path, bool make)
{
    struct stat status;
    if (stat(path.c_str(), &status) != 0) {
        if (errno != ENOENT && errno != ENOTDIR)
            throw SqliteError{errno == EACCES ? SQLITE_PERM : SQLITE_IOERR};
        if (!make) return nullptr;
        if (!makeFolder(path.substr(0, path.rfind('/')))) throw SqliteError{SQLITE_PERM};
        // Settings may hold passwords. The files beside this one get its rights.
        const Descriptor made(
            open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, isOfSystem(path) ? 0640 : 0600));
    }
    std::unique_ptr<RegistryDatabase> database(new RegistryDatabase(path));
    database->Connect(MayWrite(path) && MayWrite(path.substr(0, path.rfind('/'))));
    return database;
}

RegistryDatabase::~RegistryDatabase()
{
    for (SqliteStatement* statement :
         {&findKey, &findValue, &keyDepth, &listKeys, &listValues, &insertKey, &touchKey, &touchParent,
          &deleteKey, &deleteValues, &insertValue, &deleteValue, &childOf, &m_begin, &m_commit, &m_rollback,
          &m_dataVersion})
        *statement = SqliteStatement();
    sqlite3_close(m_database);
}

void RegistryDatabase::Execute(const char* sql)
{
    if (const int code = sqlite3_exec(m_database, sql, nullptr, nullptr, nullptr); code != SQLITE_OK)
        throw SqliteError{code};
}

void RegistryDatabase::Connect(bool mayWrite)
{
    const int flags = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE |
                      (mayWrite ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE : SQLITE_OPEN_READONLY);
    if (const int code = sqlite3_open_v2(m_path.c_str(), &m_database, flags, nullptr); code != SQLITE_OK)
        throw SqliteError{code};
    const auto onBusy = [](void* self, int tries) -> int {
        return static_cast<RegistryDatabase*>(self)->WaitsOn(tries);
    };
    sqlite3_busy_handler(m_database, onBusy, this);
    sqlite3_db_config(m_database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(m_database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    sqlite3_db_config(m_database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    if (mayWrite) {
        // The log stays when the last one leaves, so that those who may only read find a whole set of files.
        int keep = 1;
        sqlite3_file_control(m_database, "main", SQLITE_FCNTL_PERSIST_WAL, &keep);
        UseWriteAheadLog();
        Execute("PRAGMA synchronous = NORMAL");
        MakeTables();
        DropVolatileKeys();
    }
    if (askNumber(m_database, "PRAGMA application_id") != application ||
        askNumber(m_database, "PRAGMA user_version") != formatVersion)
        throw SqliteError{SQLITE_NOTADB};
    PrepareStatements();
    FindHeader();
    struct stat status;
    if (stat(m_path.c_str(), &status) != 0) throw SqliteError{SQLITE_IOERR};
    m_device = status.st_dev;
    m_inode = status.st_ino;
}

// Whether to try again; sleeps a little before.
bool RegistryDatabase::WaitsOn(int tries)
{
    using Clock = std::chrono::steady_clock;
    static auto& inVain =
        *new std::map<std::string, Clock::time_point>; // by path; the registry's lock guards it
    const Clock::time_point now = Clock::now();
    if (tries == 0) {
        const auto last = inVain.find(m_path);
        const bool isImpatient = last != inVain.end() && now - last->second < remembered;
        m_waitsUntil = now + (isImpatient ? Clock::duration(impatience) : Clock::duration(patience));
    }
    if (now >= m_waitsUntil) {
        inVain[m_path] = now;
        return false;
    }
    std::this_thread::sleep_for(tries < 8 ? 2ms : 20ms);
    return true;
}

// Several processes may be at it with a new file; the switch does not wait for the others by itself.
void RegistryDatabase::UseWriteAheadLog()
{
    for (int tries = 0;; ++tries) {
        const int code = sqlite3_exec(m_database, "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr);
        if (code == SQLITE_OK) return;
        if ((code & 0xFF) != SQLITE_BUSY || !WaitsOn(tries)) throw SqliteError{code};
    }
}

void RegistryDatabase::MakeTables()
{
    if (askNumber(m_database, "PRAGMA user_version") != 0) return;
    Execute("BEGIN IMMEDIATE");
    try {
        if (askNumber(m_database, "SELECT count(*) FROM sqlite_schema") == 0) Execute(tables);
        Execute("COMMIT");
    } catch (...) {
        sqlite3_exec(m_database, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

void RegistryDatabase::DropVolatileKeys()
{
    constexpr const char* old = "SELECT id FROM keys WHERE boot IS NOT NULL AND boot <> ?1";
    if (!SqliteStatement(m_database, old).BindText(1, bootId()).Step()) return;
    const std::string gone = std::string("WITH RECURSIVE gone(id) AS (") + old +
                             " UNION SELECT keys.id FROM keys JOIN gone ON keys.parent = gone.id) ";
    Execute("BEGIN IMMEDIATE");
    SqliteStatement(m_database, (gone + "DELETE FROM items WHERE key IN gone").c_str())
        .BindText(1, bootId())
        .Run();
    SqliteStatement(m_database, (gone + "DELETE FROM keys WHERE id IN gone").c_str())
        .BindText(1, bootId())
        .Run();
    Execute("COMMIT");
}

void RegistryDatabase::PrepareStatements()
{
    const auto make = [this](const char* sql) { return SqliteStatement(m_database, sql); };
    m_begin = make("BEGIN IMMEDIATE");
    m_commit = make("COMMIT");
    m_rollback = make("ROLLBACK");
    m_dataVersion = make("PRAGMA data_version");
    findKey = make("SELECT id FROM keys WHERE parent = ?1 AND folded = ?2");
    findValue = make("SELECT type, data FROM items WHERE key = ?1 AND folded = ?2");
    keyDepth = make("SELECT depth FROM keys WHERE id = ?1");
    listKeys = make("SELECT name, class, changed FROM keys WHERE parent = ?1 ORDER BY folded");
    listValues = make("SELECT name, '', 0 FROM items WHERE key = ?1 ORDER BY id");
    insertKey = make("INSERT INTO keys(parent, folded, name, class, depth, changed, boot) "
                     "VALUES(?1, ?2, ?3, ?4, ?5, ?6, nullif(?7, ''))");
    touchKey = make("UPDATE keys SET changed = ?2 WHERE id = ?1");
    touchParent = make("UPDATE keys SET changed = ?2 WHERE id = (SELECT parent FROM keys WHERE id = ?1)");
    deleteKey = make("DELETE FROM keys WHERE id = ?1");
    deleteValues = make("DELETE FROM items WHERE key = ?1");
    insertValue = make("INSERT INTO items(key, folded, name, type, data) VALUES(?1, ?2, ?3, ?4, ?5) "
                       "ON CONFLICT(key, folded) DO UPDATE SET type = excluded.type, data = excluded.data");
    deleteValue = make("DELETE FROM items WHERE key = ?1 AND folded = ?2");
    childOf = make("SELECT 1 FROM keys WHERE parent = ?1 LIMIT 1");
}

void RegistryDatabase::FindHeader()
{
    SqliteStatement mode(m_database, "PRAGMA journal_mode");
    if (!mode.Step() || mode.Bytes(0) != "wal") return;
    sqlite3_file* file = nullptr;
    sqlite3_file_control(m_database, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (!file || !file->pMethods || file->pMethods->iVersion < 2 || !file->pMethods->xShmMap) return;
    void volatile* region = nullptr;
    const int code = file->pMethods->xShmMap(file, 0, 32768, 0, &region);
    if (code == SQLITE_OK || code == SQLITE_READONLY)
        m_header = static_cast<const volatile std::uint64_t*>(region);
}

bool RegistryDatabase::Unchanged()
{
    if (!m_header) {
        const SqliteRow row(m_dataVersion);
        const std::int64_t version = row->Number(0);
        return std::exchange(m_seenVersion, version) == version;
    }
    std::array<std::uint64_t, headerWords> now;
    for (std::size_t i = 0; i < headerWords; ++i) now[i] = m_header[i];
    std::atomic_thread_fence(std::memory_order_acquire);
    // A writer changes the second copy first: only two equal ones are a state that was committed.
    const bool whole =
        now[0] != 0 && std::equal(now.begin(), now.begin() + headerWords / 2, now.begin() + headerWords / 2);
    const bool same = whole && now == m_seen;
    m_seen = now;
    return same;
}

RegistryDatabase::Transaction::~Transaction()
{
    if (!m_database) return;
    try {
        m_database->m_rollback.Run();
    } catch (const SqliteError&) { // it has been rolled back already
    }
}

void RegistryDatabase::Transaction::Commit()
{
    m_database->m_commit.Run();
    m_database = nullptr;
}

} // namespace corekit::detail
