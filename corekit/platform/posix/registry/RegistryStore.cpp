#include "corekit/platform/posix/registry/RegistryStore.h"

#include "corekit/platform/DataFolder.h"
#include "corekit/platform/posix/registry/RegistryText.h"
#include "corekit/platform/Registry.h"

#include <chrono>
#include <sys/stat.h>

namespace {
constexpr std::size_t cacheLimit = 4 << 20;
constexpr std::size_t cacheOverhead = 128; // of one entry, roughly
constexpr std::size_t longestKeyName = 255;
constexpr std::size_t longestValueName = 16383;
constexpr std::int64_t deepest = 512;

bool isText(DWORD type) { return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ; }

std::string storedName(std::string_view narrow, std::size_t longest)
{
    if (narrow.size() > longest) throw corekit::detail::RegistryError{ERROR_INVALID_PARAMETER};
    auto utf8 = corekit::detail::narrowToUtf8(narrow);
    if (!utf8) throw corekit::detail::RegistryError{ERROR_NO_UNICODE_TRANSLATION};
    return *std::move(utf8);
}

// 100-nanosecond steps since 1601.
std::int64_t timeNow()
{
    using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;
    const auto since1970 = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<Ticks>(since1970).count() + 116'444'736'000'000'000;
}

// Takes the first name off the path; empty at its end.
std::string_view nextName(std::string_view& path)
{
    const auto first = path.find_first_not_of('\\');
    if (first == std::string_view::npos) return path = {};
    path.remove_prefix(first);
    const std::string_view name = path.substr(0, corekit::detail::findSign(path, '\\'));
    path.remove_prefix(name.size());
    return name;
}

std::vector<std::weak_ptr<corekit::detail::RegistryStore>>& openStores()
{
    static auto* stores = new std::vector<std::weak_ptr<corekit::detail::RegistryStore>>;
    return *stores;
}
} // namespace

namespace corekit::detail {

std::shared_ptr<RegistryStore> RegistryStore::Current()
{
    // Never destroyed: keys may be read while the process ends.
    static auto* current = new std::shared_ptr<RegistryStore>;
    const std::string path = DataFolder() + "/registry.db";
    if (*current && (*current)->m_path == path && (*current)->IsThere()) return *current;
    *current = std::make_shared<RegistryStore>(path);
    std::erase_if(openStores(), [](const auto& store) { return store.expired(); });
    openStores().push_back(*current);
    return *current;
}

void RegistryStore::DisconnectAll()
{
    for (const auto& weak : openStores()) {
        const auto store = weak.lock();
        if (!store) continue;
        store->m_database.reset();
        store->Forget();
    }
}

// Whether the file is the one that the keys opened so far belong to.
bool RegistryStore::IsThere()
{
    struct stat status;
    if (m_inode == 0) return true;
    return stat(m_path.c_str(), &status) == 0 && status.st_dev == m_device && status.st_ino == m_inode;
}

RegistryDatabase* RegistryStore::Reader()
{
    if (!m_database) {
        Forget();
        if (!IsThere()) throw RegistryError{ERROR_KEY_DELETED};
        m_database = RegistryDatabase::Open(m_path, false);
        if (!m_database) return nullptr;
        m_device = m_database->Device();
        m_inode = m_database->Inode();
    }
    if (!m_database->Unchanged()) Forget();
    return m_database.get();
}

RegistryDatabase& RegistryStore::Writer()
{
    if (!m_database && !MayWrite()) throw RegistryError{ERROR_ACCESS_DENIED};
    if (!IsThere()) throw RegistryError{ERROR_KEY_DELETED};
    Forget();
    if (!m_database) {
        m_database = RegistryDatabase::Open(m_path, true);
        m_device = m_database->Device();
        m_inode = m_database->Inode();
    }
    return *m_database;
}

void RegistryStore::Forget()
{
    if (m_cachedBytes == 0) return;
    m_paths.clear();
    m_values.clear();
    m_lists.clear();
    m_cachedBytes = 0;
}

void RegistryStore::MakeRoom(std::size_t bytes)
{
    if (m_cachedBytes + bytes > cacheLimit) Forget();
    m_cachedBytes += bytes;
}

bool RegistryStore::MayWrite() const
{
    return corekit::MayWrite(m_path) && corekit::MayWrite(m_path.substr(0, m_path.rfind('/')));
}

bool RegistryStore::Exists(Key key)
{
    if (key <= RegistryDatabase::userHive) return true;
    RegistryDatabase* database = Reader();
    return database && SqliteRow(database->keyDepth.Bind(1, key));
}

RegistryStore::Key RegistryStore::Child(Key parent, std::string_view name)
{
    const std::string folded = foldName(storedName(name, longestKeyName));
    const SqliteRow row(m_database->findKey.Bind(1, parent).BindText(2, folded));
    return row ? row->Number(0) : 0;
}

RegistryStore::Key RegistryStore::Walk(Key from, std::string_view path)
{
    while (from != 0) {
        const std::string_view name = nextName(path);
        if (name.empty()) break;
        from = Child(from, name);
    }
    return from;
}

RegistryStore::Key RegistryStore::Find(Key from, const std::string& path)
{
    RegistryDatabase* database = Reader();
    if (!database) return path.empty() && from <= RegistryDatabase::userHive ? from : 0;
    const auto cached = m_paths.find(Place{from, path});
    if (cached != m_paths.end()) return cached->second;
    if (!Exists(from)) throw RegistryError{ERROR_KEY_DELETED};
    const Key found = Walk(from, path);
    MakeRoom(path.size() + cacheOverhead);
    m_paths.insert_or_assign({from, path}, found);
    return found;
}

std::pair<RegistryStore::Key, bool> RegistryStore::Create(Key from, const std::string& path,
                                                          std::string_view className, bool isVolatile)
{
    if (const Key found = Find(from, path)) return {found, false};
    RegistryDatabase& database = Writer();
    RegistryDatabase::Transaction transaction(database);
    std::int64_t depth = 0;
    if (const SqliteRow row(database.keyDepth.Bind(1, from)); row)
        depth = row->Number(0);
    else
        throw RegistryError{ERROR_KEY_DELETED};
    bool made = false;
    std::string_view rest = path;
    for (std::string_view name = nextName(rest); !name.empty(); name = nextName(rest)) {
        if (++depth > deepest) throw RegistryError{ERROR_INVALID_PARAMETER};
        const Key parent = from;
        from = Child(parent, name);
        if (from != 0) continue;
        from = Make(parent, name, depth, rest.empty() ? className : std::string_view(), isVolatile);
        made = true;
    }
    transaction.Commit();
    return {from, made};
}

RegistryStore::Key RegistryStore::Make(Key parent, std::string_view name, std::int64_t depth,
                                       std::string_view className, bool isVolatile)
{
    const std::string stored = storedName(name, longestKeyName), folded = foldName(stored);
    const std::string storedClass = storedName(className, longestKeyName);
    m_database->insertKey.Bind(1, parent).BindText(2, folded).BindText(3, stored).BindText(4, storedClass);
    m_database->insertKey.Bind(5, depth)
        .Bind(6, timeNow())
        .BindText(7, isVolatile ? bootId() : std::string_view())
        .Run();
    const Key key = m_database->LastRow();
    m_database->touchKey.Bind(1, parent).Bind(2, timeNow()).Run();
    return key;
}

void RegistryStore::Delete(Key key)
{
    if (key <= RegistryDatabase::userHive) throw RegistryError{ERROR_ACCESS_DENIED};
    RegistryDatabase& database = Writer();
    RegistryDatabase::Transaction transaction(database);
    if (SqliteRow(database.childOf.Bind(1, key))) throw RegistryError{ERROR_ACCESS_DENIED};
    database.touchParent.Bind(1, key).Bind(2, timeNow()).Run();
    database.deleteValues.Bind(1, key).Run();
    database.deleteKey.Bind(1, key).Run();
    if (database.RowsChanged() == 0) throw RegistryError{ERROR_KEY_DELETED};
    transaction.Commit();
}

const RegistryValue* RegistryStore::Value(Key key, std::string_view name)
{
    RegistryDatabase* database = Reader();
    if (!database) return nullptr;
    const auto cached = m_values.find(Place{key, name});
    if (cached != m_values.end()) return cached->second.exists ? &cached->second.value : nullptr;

    CachedValue value{false, {REG_NONE, {}}};
    const std::string folded = foldName(storedName(name, longestValueName));
    if (const SqliteRow row(database->findValue.Bind(1, key).BindText(2, folded)); row) {
        const std::string_view data = row->Bytes(1);
        value = {
            true,
            {static_cast<DWORD>(row->Number(0)), row->IsText(1) ? utf8ToNarrow(data) : std::string(data)}};
    } else if (!Exists(key)) {
        throw RegistryError{ERROR_KEY_DELETED};
    }
    MakeRoom(name.size() + value.value.data.size() + cacheOverhead);
    const auto place = m_values.insert_or_assign({key, std::string(name)}, std::move(value)).first;
    return place->second.exists ? &place->second.value : nullptr;
}

void RegistryStore::SetValue(Key key, std::string_view name, DWORD type, std::string_view data)
{
    const std::string stored = storedName(name, longestValueName), folded = foldName(stored);
    // Text that the code page cannot carry there and back is kept as the bytes it came as.
    const auto text = isText(type) ? narrowToUtf8(data) : std::nullopt;
    RegistryDatabase& database = Writer();
    RegistryDatabase::Transaction transaction(database);
    database.touchKey.Bind(1, key).Bind(2, timeNow()).Run();
    if (database.RowsChanged() == 0) throw RegistryError{ERROR_KEY_DELETED};
    SqliteStatement& insert = database.insertValue;
    insert.Bind(1, key).BindText(2, folded).BindText(3, stored).Bind(4, type);
    (text ? insert.BindText(5, *text) : insert.BindBytes(5, data)).Run();
    transaction.Commit();
}

bool RegistryStore::DeleteValue(Key key, std::string_view name)
{
    const std::string folded = foldName(storedName(name, longestValueName));
    RegistryDatabase& database = Writer();
    RegistryDatabase::Transaction transaction(database);
    database.touchKey.Bind(1, key).Bind(2, timeNow()).Run();
    if (database.RowsChanged() == 0) throw RegistryError{ERROR_KEY_DELETED};
    database.deleteValue.Bind(1, key).BindText(2, folded).Run();
    if (database.RowsChanged() == 0) return false;
    transaction.Commit();
    return true;
}

const std::vector<RegistryEntry>& RegistryStore::Keys(Key key) { return List(key, "keys"); }
const std::vector<RegistryEntry>& RegistryStore::Values(Key key) { return List(key, "values"); }

const std::vector<RegistryEntry>& RegistryStore::List(Key key, std::string_view kind)
{
    static const std::vector<RegistryEntry> none;
    RegistryDatabase* database = Reader();
    if (!database) return none;
    const auto cached = m_lists.find(Place{key, kind});
    if (cached != m_lists.end()) return cached->second;
    if (!Exists(key)) throw RegistryError{ERROR_KEY_DELETED};
    std::vector<RegistryEntry> entries;
    std::size_t bytes = cacheOverhead;
    SqliteStatement& list = kind == "keys" ? database->listKeys : database->listValues;
    for (list.Bind(1, key); list.Step();) {
        entries.push_back({utf8ToNarrow(list.Bytes(0)), utf8ToNarrow(list.Bytes(1)), list.Number(2)});
        bytes += cacheOverhead + entries.back().name.size();
    }
    MakeRoom(bytes);
    return m_lists.insert_or_assign({key, std::string(kind)}, std::move(entries)).first->second;
}

} // namespace corekit::detail
