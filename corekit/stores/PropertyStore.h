// CPropertyStore: a tree of named, typed values in memory, saved to a stream in one piece.
//
// This is the library's container for settings. A store holds values and, apart from them, nested stores; a
// value and a nested store may share a name. Names are narrow and compare as _stricmp does. Where a stream
// brought in equal names, the last is the one found. Both kinds keep the order in which they were added.
//
// A set on a name that is there keeps the type of the value, whatever is set: keep a name to one type.
//
// Nobody gets a pointer into a store. To change a nested store, get it, change it, and set it back. A copy
// costs next to nothing: copies share their content until one of them is changed.
//
// The store's lock guards each operation but reading, writing, copying and the lists of names; those want
// that no other thread changes the store meanwhile. Null names and texts are empty ones. Exhausted memory
// throws the memory exception.
#pragma once

#include "corekit/foundation/CriticalObject.h"
#include "corekit/foundation/Stream.h"
#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <string_view>

// How the bytes of a value are to be read. A stream may bring in other numbers; they are kept.
enum ePSEntryType : DWORD {
    ePSString = 0,  // UTF-16 without a terminator
    ePSInteger = 1, // 4 bytes, signed or not
    ePSGuid = 2,    // 16 bytes as in memory
    ePSBinary = 3,  // any bytes; also points, sizes, rectangles and 64-bit numbers
    ePSNone = 4,    // what a missing name has; never kept
};

namespace corekit::detail {
class PropertyStoreBody;
struct PropertyStoreChild;

// Shares a body with other stores and frees it after the last of them. No body is an empty one.
class PropertyStoreRef {
public:
    constexpr PropertyStoreRef() noexcept = default;
    explicit PropertyStoreRef(PropertyStoreBody* body) noexcept : m_body(body) {}
    PropertyStoreRef(const PropertyStoreRef& other) noexcept;
    PropertyStoreRef(PropertyStoreRef&& other) noexcept : m_body(other.m_body) { other.m_body = nullptr; }
    PropertyStoreRef& operator=(PropertyStoreRef other) noexcept
    {
        PropertyStoreBody* mine = m_body;
        m_body = other.m_body;
        other.m_body = mine;
        return *this;
    }
    ~PropertyStoreRef();

    PropertyStoreBody* operator->() const noexcept { return m_body; }
    PropertyStoreBody* Get() const noexcept { return m_body; }
    PropertyStoreBody* Release() noexcept // the caller owns the share
    {
        PropertyStoreBody* body = m_body;
        m_body = nullptr;
        return body;
    }
    // One share more of a body that somebody holds.
    static PropertyStoreRef ShareOf(PropertyStoreBody& body) noexcept;
    // A body that nobody else sees, made or copied if need be.
    PropertyStoreBody& Own();

private:
    PropertyStoreBody* m_body = nullptr;
};
} // namespace corekit::detail

class COREKIT_API CPropertyStore : public CCriticalObject {
    DECLARE_DYNAMIC(CPropertyStore)

public:
    CPropertyStore();
    CPropertyStore(const CPropertyStore& source);
    // A store assigned to itself ends up empty.
    CPropertyStore& operator=(const CPropertyStore& source);
    ~CPropertyStore() override;

    // --- reading values: 1, or 0 for a missing name, with the output untouched

    // The first bytes of the value, whatever its type; bytes that it lacks read as 0.
    int GetValue(const char* name, int& value) &;
    int GetValue(const char* name, long& value) &; // 4 bytes, extended
    int GetValue(const char* name, unsigned int& value) &;
    int GetValue(const char* name, unsigned long& value) &; // 4 bytes, extended
    int GetValue(const char* name, _GUID& value) &;
    // The bytes as text, an odd last one left out.
    int GetValue(const char* name, StringW& value) &;
    int GetValue(const char* name, StringA& value) &; // narrowed by the active code page
    int GetValue(const char* name, CString& value) &;
    // All bytes of the value.
    int GetValue(const char* name, CByteArray& value) &;
    // These find only a value of exactly their own size in bytes.
    int GetBinaryValue(const char* name, void* buffer, DWORD size) &;
    int GetValue(const char* name, POINT& value) & { return GetBinaryValue(name, &value, sizeof value); }
    int GetValue(const char* name, SIZE& value) & { return GetBinaryValue(name, &value, sizeof value); }
    int GetValue(const char* name, RECT& value) & { return GetBinaryValue(name, &value, sizeof value); }
    int GetValue(const char* name, DWORDLONG& value) & { return GetBinaryValue(name, &value, sizeof value); }

    // --- writing values

    // Put their bytes at the start of a value that is there, whose size stays: what does not fit is left out.
    void SetValue(const char* name, int value) { SetInteger(name, static_cast<DWORD>(value)); }
    void SetValue(const char* name, long value) { SetInteger(name, static_cast<DWORD>(value)); }
    void SetValue(const char* name, unsigned int value) { SetInteger(name, value); }
    void SetValue(const char* name, unsigned long value) { SetInteger(name, static_cast<DWORD>(value)); }
    void SetValue(const char* name, const _GUID& value);
    // Replace all bytes of a value that is there.
    void SetValue(const char* name, const WCHAR* text);
    void SetValue(const char* name, const char* text); // widened by the active code page
    void SetBinaryValue(const char* name, const void* data, DWORD size);
    void SetValue(const char* name, const CByteArray& value);
    void SetValue(const char* name, DWORDLONG value) { SetBinaryValue(name, &value, sizeof value); }
    void SetValue(const char* name, POINT value) { SetBinaryValue(name, &value, sizeof value); }
    void SetValue(const char* name, SIZE value) { SetBinaryValue(name, &value, sizeof value); }
    void SetValue(const char* name, RECT value) { SetBinaryValue(name, &value, sizeof value); }

    void DeleteValue(const char* name); // a missing name is no error

    // --- the list of values. An index outside it gives an empty name and ePSNone.

    int GetPropertyStoreValueCount();
    StringA GetPropertyStoreValueName(int index);
    ePSEntryType GetPropertyStoreValueType(int index);
    ePSEntryType GetPropertyStoreValueType(const char* name) &;
    void GetPropertyStoreValueNames(CArray<StringA, const char*>& names); // appends

    // --- nested stores, always as copies. A missing name or index gives an empty store and deletes nothing.

    void SetPropertyStore(const char* name, const CPropertyStore& store);
    CPropertyStore GetPropertyStore(const char* name) &;
    CPropertyStore GetPropertyStore(int index) &;

    // --- the same along a path, store.GetPropertyStore("A").GetPropertyStore("B").GetValue("C", value): a
    // copy that has no name is known to nobody else, so these take no lock; the nested store takes it over

    CPropertyStore GetPropertyStore(const char* name) &&;
    CPropertyStore GetPropertyStore(int index) &&;
    template <class Value>
    int GetValue(const char* name, Value& value) &&
    {
        const Alone alone(m_isAlone);
        return GetValue(name, value);
    }
    int GetBinaryValue(const char* name, void* buffer, DWORD size) &&
    {
        const Alone alone(m_isAlone);
        return GetBinaryValue(name, buffer, size);
    }
    ePSEntryType GetPropertyStoreValueType(const char* name) &&
    {
        const Alone alone(m_isAlone);
        return GetPropertyStoreValueType(name);
    }
    int PropertyStoreExists(const char* name) &&
    {
        const Alone alone(m_isAlone);
        return PropertyStoreExists(name);
    }
    int PropertyStoreExists(const char* name) &;
    int GetPropertyStoreCount();
    StringA GetPropertyStoreName(int index);
    void GetPropertyStoreNames(CArray<StringA, const char*>& names); // appends
    void DeletePropertyStore(const char* name);
    void DeletePropertyStore(int index);

    // --- the whole store

    void Empty();
    // Appends what the stream holds, without a look at the names that are there. A failure throws what the
    // stream throws, message::invalidVersion for another version, or message::dataCorrupt where stores nest
    // deeper than deepestNesting; what was read before it is kept. Takes as much memory as the stream has
    // bytes, and at most 16 MiB more. What was read stays packed until the first look at it, which unpacks
    // one level and takes the time and the memory for it; a nested store that nobody looked at keeps the
    // bytes of the whole.
    void ReadStream(CStream& stream);
    // Throws message::dataCorrupt, with nothing written, where stores nest deeper than deepestNesting: they
    // could not be read again.
    void WriteStream(CStream& stream);

    static constexpr int deepestNesting = 256;

private:
    explicit CPropertyStore(const corekit::detail::PropertyStoreRef& body);

    template <class Operation>
    auto Locked(Operation operation);
    // Calls use with the bytes of the value; 1 if there is one.
    template <class Use>
    int WithValue(const char* name, Use use);
    template <class Value>
    int GetFirstBytes(const char* name, Value& value);
    void SetInteger(const char* name, DWORD value);
    void SetFirstBytes(const char* name, ePSEntryType type, const void* data, std::size_t size);
    void SetBytes(const char* name, ePSEntryType type, const void* data, std::size_t size);

    // The content; null for none.
    corekit::detail::PropertyStoreBody* Body() const noexcept { return m_inner ? m_inner : m_body.Get(); }
    // The same as a share of its own.
    corekit::detail::PropertyStoreRef Share() const;
    corekit::detail::PropertyStoreBody& Own();
    CPropertyStore TakeNested(const corekit::detail::PropertyStoreChild* child);

    struct Alone {
        explicit Alone(bool& flag) : m_flag(flag) { m_flag = true; }
        Alone(const Alone&) = delete;
        Alone& operator=(const Alone&) = delete;
        ~Alone() { m_flag = false; }
        bool& m_flag;
    };

    corekit::detail::PropertyStoreRef m_body;
    bool m_isAlone = false; // the running operation needs no lock
    // The content is this one, nested in m_body, which keeps it. Saves a share in the middle of a path.
    corekit::detail::PropertyStoreBody* m_inner = nullptr;
};
