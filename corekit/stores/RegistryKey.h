// One key of the registry, with the library's forms of values.
//
//     CRegistryKey key;
//     int mode = 0;
//     if (key.Open(HKEY_LOCAL_MACHINE, "Software\\Corvane", 0x2001F)) key.GetValue("NTSC Mode", mode);
//
// Texts are REG_SZ, numbers of 32 bits REG_DWORD, all else is REG_BINARY; a GUID is text with braces. Getters
// return 1, or 0 for a missing value or one of another type or size, and then leave the output alone.
// Setters throw message::setValueFailed. The object owns its handle. Any thread, one at a time for one
// object.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/framework/Geometry.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Registry.h"

class COREKIT_API CRegistryKey : public CObject {
    DECLARE_DYNAMIC(CRegistryKey)
public:
    // No key. The other constructor does what Attach does; the destructor closes.
    CRegistryKey() = default;
    explicit CRegistryKey(HKEY key) { Attach(key); }
    ~CRegistryKey() override;

    // The handle for the functions of the registry, still owned by the object; null when no key is open.
    operator HKEY() const { return m_hKey; }

    bool IsOpen() const { return m_hKey != nullptr; }

    // Opens the key or makes it with all that is missing above it; throws message::createKeyFailed. Like
    // every operation that opens a key, it closes the one held so far once the new one is there.
    void Create(HKEY parent, const char* subKey, DWORD options = REG_OPTION_NON_VOLATILE,
                DWORD access = 0x2001F, _SECURITY_ATTRIBUTES* security = nullptr);
    // Opens a key that is there; `access` is 0x20019 for reading only. 0 on failure; the key held so far
    // then stays.
    int Open(HKEY parent, const char* subKey, DWORD access = 0x2001F);
    // A hive by the name of a machine, with a leading "\" or without, for reading and writing; 0 on
    // failure. Only this machine's can be reached: by null, "." or its own name.
    int OpenRemoteKey(const char* machine, HKEY hive);
    // Another handle on a key that stays the caller's. Closed if the key cannot be opened for writing.
    void Attach(HKEY key);
    // Gives the handle away; the caller closes it.
    HKEY Detach();
    // Throws message::closeKeyFailed, also if no key is open.
    void Close();

    // A null or empty name is the key's unnamed value, here and below.
    int GetValue(const char* name, CString& value) const;
    int GetValue(const char* name, int& value) const; // REG_DWORD, as the next three
    int GetValue(const char* name, unsigned int& value) const;
    int GetValue(const char* name, long& value) const;               // 32 bits, signed
    int GetValue(const char* name, unsigned long& value) const;      // 32 bits
    int GetValue(const char* name, void* buffer, DWORD size) const;  // exactly `size` bytes
    int GetValue(const char* name, CRect& value) const;              // 16 bytes
    int GetValue(const char* name, unsigned long long& value) const; // 8 bytes
    int GetValue(const char* name, CByteArray& value) const;         // all bytes
    int GetValue(const char* name, _GUID& value) const;              // a text in braces
    // Four bytes an element.
    int GetValue(const char* name, CArray<int, int>& value) const;
    // One element for each four bytes of the value; they hold the value's first half.
    int GetValue(const char* name, CWordArray& value) const;

    // Each makes the value or replaces it, its type included.
    void SetValue(const char* name, const char* value);
    void SetValue(const char* name, const CString& value);
    void SetValue(const char* name, int value);
    void SetValue(const char* name, unsigned int value);
    void SetValue(const char* name, long value);                   // the low 32 bits
    void SetValue(const char* name, unsigned long value);          // the low 32 bits
    void SetValue(const char* name, const void* data, DWORD size); // REG_BINARY
    void SetValue(const char* name, const CRect& value);
    void SetValue(const char* name, unsigned long long value);
    void SetValue(const char* name, const CByteArray& value);
    void SetValue(const char* name, const _GUID& value);
    // Pairs of hexadecimal digits with one character between them, as in 0A-FF-3C, stored as REG_BINARY.
    void SetHexString(const char* name, const char* text);

    // The deleters report nothing. A key below this one, by its name, goes only if it has none below
    // itself.
    void DeleteValue(const char* name);
    void DeleteKey(const char* name);
    // All values and, at any depth, all keys below this one; this key stays. Keys that cannot be opened
    // stay too.
    void DeleteContents();
    // The keys alone.
    void DeleteSubKeys();

    // One key below this one, or one value, counted from 0 in the registry's order, which a change may
    // alter. 1, or 0 at the end and for names of 512 characters and more. `time`, of the last change, may
    // be null.
    int EnumKey(int index, CString& name, CString& className, _FILETIME* time = nullptr) const;
    int EnumValue(int index, CString& name, DWORD& type) const;
    // Keys directly below this one, counted up to the first that EnumKey refuses.
    int GetSubkeyCount() const;

private:
    // Closes the key held and holds this one.
    void Replace(HKEY key);
    bool ReadNumber(const char* name, DWORD& value) const;
    bool BinarySize(const char* name, DWORD& size) const;
    bool ReadBinary(const char* name, void* buffer, DWORD size) const;
    void Write(const char* name, DWORD type, const void* data, DWORD size);

    HKEY m_hKey = nullptr;
};
