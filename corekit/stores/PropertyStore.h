// CPropertyStore: a tree of named, typed values in memory, saved to a stream in one piece.
//
// This is the library's container for settings. A store holds values and, apart from them, nested stores; a
// value and a nested store may share a name. Names are narrow and compare as _stricmp does. Where a stream
// brought in equal names, the last is the one found. Both kinds keep the order in which they were added.
//
// A set on a name that is there keeps the type of the value, whatever is set: keep a name to one type.
//
// Nobody gets a pointer into a store. To change a nested store, get it, change it, and set it back. A copy
// costs next to nothing, and a change to it costs what it changes, however much the two share.
//
// Each operation is one step for other threads, but for reading a stream, writing one and copying: those want
// that no other thread changes the store meanwhile. The store's lock sees to it; the thread that made the
// store looks without it as long as no other one has changed the store. Null names and texts are empty ones.
// Exhausted memory throws the memory exception.
#pragma once

#include "corekit/foundation/CriticalObject.h"
#include "corekit/foundation/Stream.h"
#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <atomic>
#include <cstddef>

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
}

class COREKIT_API CPropertyStore : public CCriticalObject {
    DECLARE_DYNAMIC(CPropertyStore)

public:
    // An empty store. The copy shares the content of the source until one of the two is changed.
    CPropertyStore();
    CPropertyStore(const CPropertyStore& source);
    // A store assigned to itself ends up empty.
    CPropertyStore& operator=(const CPropertyStore& source);
    ~CPropertyStore() override;

    // --- reading values: 1, or 0 for a missing name, with the output untouched

    // The first bytes of the value, whatever its type; bytes that it lacks read as 0.
    int GetValue(const char* name, int& value) const;
    int GetValue(const char* name, long& value) const;          // 4 bytes, extended
    int GetValue(const char* name, unsigned int& value) const;  // 4 bytes
    int GetValue(const char* name, unsigned long& value) const; // 4 bytes, extended
    int GetValue(const char* name, _GUID& value) const;         // 16 bytes
    // The bytes as UTF-16 text, an odd last one left out.
    int GetValue(const char* name, StringW& value) const;
    int GetValue(const char* name, StringA& value) const; // narrowed by the active code page
    int GetValue(const char* name, CString& value) const;
    // All bytes of the value.
    int GetValue(const char* name, CByteArray& value) const;
    // These find only a value of exactly their own size in bytes: `size`, 8 for points, sizes and 64-bit
    // numbers, 16 for rectangles.
    int GetBinaryValue(const char* name, void* buffer, DWORD size) const;
    int GetValue(const char* name, POINT& value) const { return GetBinaryValue(name, &value, sizeof value); }
    int GetValue(const char* name, SIZE& value) const { return GetBinaryValue(name, &value, sizeof value); }
    int GetValue(const char* name, RECT& value) const { return GetBinaryValue(name, &value, sizeof value); }
    int GetValue(const char* name, DWORDLONG& value) const
    {
        return GetBinaryValue(name, &value, sizeof value);
    }

    // --- writing values

    // Put their bytes at the start of a value that is there, whose size stays: what does not fit is left
    // out. A new value has 4 bytes and ePSInteger, a GUID 16 and ePSGuid.
    void SetValue(const char* name, int value) { SetInteger(name, static_cast<DWORD>(value)); }
    void SetValue(const char* name, long value) { SetInteger(name, static_cast<DWORD>(value)); }
    void SetValue(const char* name, unsigned int value) { SetInteger(name, value); }
    void SetValue(const char* name, unsigned long value) { SetInteger(name, static_cast<DWORD>(value)); }
    void SetValue(const char* name, const _GUID& value);
    // Replace all bytes of a value that is there. A new one is ePSString or ePSBinary; texts are kept up to
    // their terminator, without it.
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

    // Values of this store alone, not of those nested in it; counted from 0 in the order in which they were
    // added.
    int GetPropertyStoreValueCount() const;
    StringA GetPropertyStoreValueName(int index) const;
    ePSEntryType GetPropertyStoreValueType(int index) const;
    ePSEntryType GetPropertyStoreValueType(const char* name) const;
    void GetPropertyStoreValueNames(CArray<StringA, const char*>& names) const; // appends

    // --- nested stores, always as copies. A missing name or index gives an empty store and deletes nothing.

    // Makes a nested store of that name or replaces its content. The store itself may be given: it is
    // copied first.
    void SetPropertyStore(const char* name, const CPropertyStore& store);

    CPropertyStore GetPropertyStore(const char* name) const;
    CPropertyStore GetPropertyStore(int index) const;
    int PropertyStoreExists(const char* name) const; // 1 or 0
    int GetPropertyStoreCount() const;
    StringA GetPropertyStoreName(int index) const;
    void GetPropertyStoreNames(CArray<StringA, const char*>& names) const; // appends
    void DeletePropertyStore(const char* name);
    void DeletePropertyStore(int index);

    // --- the whole store

    // Drops all values and nested stores.
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
    void WriteStream(CStream& stream) const;

    static constexpr int deepestNesting = 256; // levels below the outermost store

private:
    using Body = corekit::detail::PropertyStoreBody;

    explicit CPropertyStore(Body* share) noexcept;

    // Call use with the content, null for none.
    template <class Use>
    auto Look(Use use) const;
    template <class Use>
    auto Change(Use use);
    // Calls use with the bytes of the value; 1 if there is one.
    template <class Use>
    int WithValue(const char* name, Use use) const;
    template <class Value>
    int GetFirstBytes(const char* name, Value& value) const;
    void SetInteger(const char* name, DWORD value);
    void SetFirstBytes(const char* name, ePSEntryType type, const void* data, std::size_t size);
    void SetBytes(const char* name, ePSEntryType type, const void* data, std::size_t size);

    Body* Share() const noexcept;
    Body& OwnBody(); // one that no other store sees
    void SetBody(Body* share) noexcept;
    void KeepForMaker() noexcept;
    void DropKept() const noexcept;

    std::atomic<Body*> m_body = nullptr;
    // The thread that made the store looks into it without the lock, until another one changes it. What that
    // one found stays until the first thread is seen not to be looking any more.
    const DWORD m_maker;
    std::atomic<bool> m_isMakersOwn = true;
    mutable Body* m_kept = nullptr;
};
