// What the registry's functions do, by key number: one object for each registry file that is in use.
//
// Everything here runs under the one lock of Registry.cpp. Narrow text in and out; failures are thrown.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/posix/registry/RegistryDatabase.h"
#include "corekit/platform/Types.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corekit::detail {

struct RegistryError {
    DWORD code;
};

struct RegistryValue {
    DWORD type;
    std::string data;
};

struct RegistryEntry {
    std::string name;
    std::string className; // of a key
    std::int64_t changed;  // of a key, as a FILETIME
};

class RegistryStore {
public:
    using Key = std::int64_t;

    // The store of the folder that the environment names now.
    static std::shared_ptr<RegistryStore> Current();
    // Closes all connections; each comes back when it is needed. A connection must not live across a fork.
    COREKIT_API static void DisconnectAll();

    explicit RegistryStore(std::string path) : m_path(std::move(path)) {}

    bool MayWrite() const;
    bool Exists(Key key);
    Key Find(Key from, const std::string& path); // 0 if there is none
    // The key and whether it was made.
    std::pair<Key, bool> Create(Key from, const std::string& path, std::string_view className,
                                bool isVolatile);
    void Delete(Key key);

    // Null if there is none. Valid until the next call of anything here.
    const RegistryValue* Value(Key key, std::string_view name);
    void SetValue(Key key, std::string_view name, DWORD type, std::string_view data);
    bool DeleteValue(Key key, std::string_view name);

    // Valid until the next call of anything here.
    const std::vector<RegistryEntry>& Keys(Key key);
    const std::vector<RegistryEntry>& Values(Key key);

private:
    struct Place {
        Key key;
        std::string_view name;
    };
    struct OwnedPlace {
        Key key;
        std::string name;
        operator Place() const { return {key, name}; }
    };
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(const Place& place) const
        {
            return std::hash<std::string_view>()(place.name) ^
                   static_cast<std::size_t>(place.key) * 0x9E3779B97F4A7C15u;
        }
    };
    struct Equal {
        using is_transparent = void;
        bool operator()(const Place& a, const Place& b) const { return a.key == b.key && a.name == b.name; }
    };
    template <class T>
    using PlaceMap = std::unordered_map<OwnedPlace, T, Hash, Equal>;
    struct CachedValue {
        bool exists;
        RegistryValue value;
    };

    bool IsThere();
    RegistryDatabase* Reader(); // null while there is no file; drops what is out of date
    RegistryDatabase& Writer();
    void Forget();
    void MakeRoom(std::size_t bytes);
    Key Child(Key parent, std::string_view name);
    Key Walk(Key from, std::string_view path);
    Key Make(Key parent, std::string_view name, std::int64_t depth, std::string_view className,
             bool isVolatile);
    const std::vector<RegistryEntry>& List(Key key, std::string_view kind);

    const std::string m_path;
    std::unique_ptr<RegistryDatabase> m_database;
    dev_t m_device = 0; // of the file that key numbers belong to, once it has been seen
    ino_t m_inode = 0;
    std::size_t m_cachedBytes = 0;
    PlaceMap<Key> m_paths;
    PlaceMap<CachedValue> m_values;
    PlaceMap<std::vector<RegistryEntry>> m_lists;
};

} // namespace corekit::detail
