#include "corekit/platform/Registry.h"

#include "corekit/platform/posix/handles/SlotTable.h"
#include "corekit/platform/posix/registry/RegistryStore.h"
#include "corekit/platform/posix/registry/RegistryText.h"
#include "corekit/platform/Runtime.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <pthread.h>
#include <stdexcept>
#include <unistd.h>
#include <utility>

namespace {
using corekit::detail::RegistryDatabase;
using corekit::detail::RegistryError;
using corekit::detail::RegistryStore;
using corekit::detail::RegistryValue;
using corekit::detail::SqliteError;

constexpr DWORD genericRead = 0x80000000, genericWrite = 0x40000000, genericAll = 0x10000000;
constexpr DWORD maximumAllowed = 0x02000000;
constexpr DWORD writingRights = KEY_SET_VALUE | KEY_CREATE_SUB_KEY | 0x20 | 0xD0000; // links, delete, owner

struct OpenKey {
    std::shared_ptr<RegistryStore> store;
    RegistryStore::Key key = 0;
    DWORD access = 0;
};

struct KeySlot : corekit::detail::Slot {
    void clear() { open = {}; }

    OpenKey open;
};

constinit corekit::detail::SlotTable<KeySlot, corekit::detail::mostSlots> openKeys;

// One lock for all: the connection is one, and a call from the cache is over in a fraction of a microsecond.
constinit std::mutex lock;

// A connection belongs to the process that made it, so none is open while a process divides.
void watchForks()
{
    static const int watching = pthread_atfork(
        [] {
            lock.lock();
            RegistryStore::DisconnectAll();
        },
        [] { lock.unlock(); }, [] { lock.unlock(); });
    if (watching != 0) throw std::bad_alloc();
}

DWORD errorOf(const SqliteError& error)
{
    switch (error.code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return ERROR_BUSY;
    case SQLITE_PERM:
    case SQLITE_AUTH:
    case SQLITE_READONLY:
        return ERROR_ACCESS_DENIED;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_ERROR:
        return ERROR_REGISTRY_CORRUPT; // an error in the statements: the tables are not ours
    case SQLITE_FULL:
        return ERROR_DISK_FULL;
    case SQLITE_NOMEM:
        return ERROR_NOT_ENOUGH_MEMORY;
    case SQLITE_TOOBIG:
        return ERROR_INVALID_PARAMETER;
    default:
        return ERROR_REGISTRY_IO_FAILED;
    }
}

// Every public operation runs in here.
template <class Operation>
LONG answer(Operation operation) noexcept
{
    DWORD code = ERROR_SUCCESS;
    try {
        watchForks();
        const std::lock_guard guard(lock);
        try {
            operation();
        } catch (const SqliteError& error) {
            code = errorOf(error);
            if (code == ERROR_REGISTRY_CORRUPT || code == ERROR_REGISTRY_IO_FAILED)
                RegistryStore::DisconnectAll();
        }
    } catch (const RegistryError& error) {
        code = error.code;
    } catch (const std::bad_alloc&) {
        code = ERROR_NOT_ENOUGH_MEMORY;
    } catch (const std::length_error&) {
        code = ERROR_NOT_ENOUGH_MEMORY;
    }
    return static_cast<LONG>(code);
}

void require(bool condition, DWORD code = ERROR_INVALID_PARAMETER)
{
    if (!condition) throw RegistryError{code};
}

// A user of an open key.
class KeyUser {
public:
    explicit KeyUser(HKEY key) : m_slot(openKeys.enter(reinterpret_cast<corekit::detail::HandleNumber>(key)))
    {
        require(m_slot, ERROR_INVALID_HANDLE);
    }
    KeyUser(const KeyUser&) = delete;
    KeyUser& operator=(const KeyUser&) = delete;
    ~KeyUser() { openKeys.leave(*m_slot); }

    const OpenKey& operator*() const { return m_slot->open; }
    void Close() { m_slot->close(); }

private:
    KeySlot* const m_slot;
};

HKEY newHandle(std::shared_ptr<RegistryStore> store, RegistryStore::Key key, DWORD access)
{
    const auto number = openKeys.open(corekit::detail::HandleKind::registryKey, [&](KeySlot& slot) {
        slot.open = {std::move(store), key, access};
    });
    require(number != 0, ERROR_NOT_ENOUGH_MEMORY);
    return reinterpret_cast<HKEY>(number);
}

// A hive, or a copy of the open key's record.
OpenKey opened(HKEY key, DWORD access = 0)
{
    if (key == HKEY_LOCAL_MACHINE)
        return {RegistryStore::Current(), RegistryDatabase::machineHive, KEY_ALL_ACCESS};
    if (key == HKEY_CURRENT_USER)
        return {RegistryStore::Current(), RegistryDatabase::userHive, KEY_ALL_ACCESS};
    const KeyUser open(key);
    require(((*open).access & access) == access, ERROR_ACCESS_DENIED);
    return *open;
}

std::string pathOf(const char* subKey)
{
    std::string path = subKey ? subKey : "";
    require(!path.starts_with('\\'), ERROR_BAD_PATHNAME);
    while (corekit::detail::endsWithSign(path, '\\')) path.pop_back();
    return path;
}

// What the handle may do in the end; throws 5 for more than this user may.
DWORD grantedAccess(const RegistryStore& store, DWORD access)
{
    if (access & maximumAllowed) return store.MayWrite() ? KEY_ALL_ACCESS : KEY_READ;
    if (access & genericAll) access |= KEY_ALL_ACCESS;
    if (access & genericRead) access |= KEY_READ;
    if (access & genericWrite) access |= KEY_WRITE;
    require(!(access & writingRights) || store.MayWrite(), ERROR_ACCESS_DENIED);
    return access;
}

void copyData(std::string_view from, BYTE* data, DWORD* size)
{
    if (!size) return;
    const DWORD room = std::exchange(*size, static_cast<DWORD>(from.size()));
    if (!data) return;
    require(from.size() <= room, ERROR_MORE_DATA);
    std::copy_n(from.data(), from.size(), data);
}

void copyText(std::string_view from, char* text, DWORD* size)
{
    if (!text || !size) return;
    require(from.size() < *size, ERROR_MORE_DATA);
    text[from.copy(text, from.size())] = 0;
    *size = static_cast<DWORD>(from.size());
}

std::string_view nameOf(const char* name) { return name ? name : ""; }
} // namespace

LONG RegOpenKeyExA(HKEY key, const char* subKey, DWORD, DWORD access, HKEY* result)
{
    return answer([&] {
        require(result);
        const OpenKey parent = opened(key);
        const RegistryStore::Key found = parent.store->Find(parent.key, pathOf(subKey));
        require(found != 0, ERROR_FILE_NOT_FOUND);
        *result = newHandle(parent.store, found, grantedAccess(*parent.store, access));
    });
}

LONG RegCreateKeyExA(HKEY key, const char* subKey, DWORD, const char* keyClass, DWORD options, DWORD access,
                     const _SECURITY_ATTRIBUTES*, HKEY* result, DWORD* disposition)
{
    return answer([&] {
        require(result && subKey && (options & ~REG_OPTION_VOLATILE) == 0);
        const OpenKey parent = opened(key);
        const DWORD granted = grantedAccess(*parent.store, access);
        const auto [found, made] =
            parent.store->Create(parent.key, pathOf(subKey), nameOf(keyClass), options & REG_OPTION_VOLATILE);
        *result = newHandle(parent.store, found, granted);
        if (disposition) *disposition = made ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
    });
}

LONG RegCloseKey(HKEY key)
{
    return answer([&] {
        if (key == HKEY_LOCAL_MACHINE || key == HKEY_CURRENT_USER) return;
        KeyUser(key).Close();
    });
}

LONG RegConnectRegistryA(const char* machine, HKEY hive, HKEY* result)
{
    return answer([&] {
        require(result);
        require(hive == HKEY_LOCAL_MACHINE || hive == HKEY_CURRENT_USER, ERROR_INVALID_HANDLE);
        std::string_view name = nameOf(machine);
        name.remove_prefix(std::min(name.find_first_not_of('\\'), name.size()));
        char own[256] = "";
        gethostname(own, sizeof own - 1);
        const auto is = [&](std::string_view other) {
            return name.size() == other.size() && _strnicmp(name.data(), other.data(), name.size()) == 0;
        };
        require(name.empty() || is(".") || is("localhost") || is(own), ERROR_BAD_NETPATH);
        const OpenKey local = opened(hive);
        *result = newHandle(local.store, local.key, grantedAccess(*local.store, maximumAllowed));
    });
}

LONG RegQueryValueExA(HKEY key, const char* name, DWORD*, DWORD* type, BYTE* data, DWORD* size)
{
    return answer([&] {
        require(size || !data);
        const OpenKey open = opened(key, KEY_QUERY_VALUE);
        const RegistryValue* value = open.store->Value(open.key, nameOf(name));
        require(value, ERROR_FILE_NOT_FOUND);
        if (type) *type = value->type;
        copyData(value->data, data, size);
    });
}

LONG RegSetValueExA(HKEY key, const char* name, DWORD, DWORD type, const BYTE* data, DWORD size)
{
    return answer([&] {
        require(data || size == 0);
        const OpenKey open = opened(key, KEY_SET_VALUE);
        open.store->SetValue(open.key, nameOf(name), type, {reinterpret_cast<const char*>(data), size});
    });
}

LONG RegDeleteValueA(HKEY key, const char* name)
{
    return answer([&] {
        const OpenKey open = opened(key, KEY_SET_VALUE);
        require(open.store->DeleteValue(open.key, nameOf(name)), ERROR_FILE_NOT_FOUND);
    });
}

LONG RegDeleteKeyA(HKEY key, const char* subKey)
{
    return answer([&] {
        require(subKey);
        const OpenKey parent = opened(key);
        const RegistryStore::Key found = parent.store->Find(parent.key, pathOf(subKey));
        require(found != 0, ERROR_FILE_NOT_FOUND);
        parent.store->Delete(found);
    });
}

LONG RegEnumKeyExA(HKEY key, DWORD index, char* name, DWORD* nameSize, DWORD*, char* keyClass,
                   DWORD* classSize, FILETIME* time)
{
    return answer([&] {
        require(name && nameSize && (!keyClass || classSize));
        const OpenKey open = opened(key, KEY_ENUMERATE_SUB_KEYS);
        const auto& entries = open.store->Keys(open.key);
        require(index < entries.size(), ERROR_NO_MORE_ITEMS);
        copyText(entries[index].name, name, nameSize);
        copyText(entries[index].className, keyClass, classSize);
        const auto changed = static_cast<std::uint64_t>(entries[index].changed);
        if (time) *time = {static_cast<DWORD>(changed), static_cast<DWORD>(changed >> 32)};
    });
}

LONG RegEnumValueA(HKEY key, DWORD index, char* name, DWORD* nameSize, DWORD*, DWORD* type, BYTE* data,
                   DWORD* size)
{
    return answer([&] {
        require(name && nameSize && (size || !data));
        const OpenKey open = opened(key, KEY_QUERY_VALUE);
        const auto& entries = open.store->Values(open.key);
        require(index < entries.size(), ERROR_NO_MORE_ITEMS);
        copyText(entries[index].name, name, nameSize);
        if (!type && !size) return;
        const RegistryValue* value = open.store->Value(open.key, std::string(entries[index].name));
        require(value, ERROR_NO_MORE_ITEMS);
        if (type) *type = value->type;
        copyData(value->data, data, size);
    });
}
