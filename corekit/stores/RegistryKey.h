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
    CRegistryKey() = default;
    explicit CRegistryKey(HKEY key) { Attach(key); }
    ~CRegistryKey() override;

    operator HKEY() const { return m_hKey; }
    bool IsOpen() const { return m_hKey != nullptr; }

    // Opens the key or makes it with all that is missing above it; throws message::createKeyFailed. Like
    // every operation that opens a key, it closes the one held so far once the new one is there.
    void Create(HKEY parent, const char* subKey, DWORD options = REG_OPTION_NON_VOLATILE,
                DWORD access = 0x2001F, _SECURITY_ATTRIBUTES* security = nullptr);
    // 0 on failure; the key held so far then stays.
    int Open(HKEY parent, const char* subKey, DWORD access = 0x2001F);
    // A hive of another machine, for reading and writing; 0 on failure.
    int OpenRemoteKey(const char* machine, HKEY hive);
    // Another handle on a key that stays the caller's. Closed if the key cannot be opened for writing.
    void Attach(HKEY key);
    // Gives the handle away; the caller closes it.
    HKEY Detach();
    // Throws message::closeKeyFailed, also if no key is open.
    void Close();

    int GetValue(const char* name, CString& value) const;
    int GetValue(const char* name, int& value) const;
    int GetValue(const char* name, unsigned int& value) const;
    int GetValue(const char* name, long& value) const;          // 32 bits, signed
    int GetValue(const char* name, unsigned long& value) const; // 32 bits
    int GetValue(const char* name, void* buffer, DWORD size) const;
    int GetValue(const char* name, CRect& value) const;
    int GetValue(const char* name, unsigned long long& value) const;
    int GetValue(const char* name, CByteArray& value) const;
    int GetValue(const char* name, _GUID& value) const;
    // Four bytes an element.
    int GetValue(const char* name, CArray<int, int>& value) const;
    // One element for each four bytes of the value; they hold the value's first half.
    int GetValue(const char* name, CWordArray& value) const;

    void SetValue(const char* name, const char* value);
    void SetValue(const char* name, const CString& value);
    void SetValue(const char* name, int value);
    void SetValue(const char* name, unsigned int value);
    void SetValue(const char* name, long value);          // the low 32 bits
    void SetValue(const char* name, unsigned long value); // the low 32 bits
    void SetValue(const char* name, const void* data, DWORD size);
    void SetValue(const char* name, const CRect& value);
    void SetValue(const char* name, unsigned long long value);
    void SetValue(const char* name, const CByteArray& value);
    void SetValue(const char* name, const _GUID& value);
    // Pairs of hexadecimal digits with one character between them, as in 0A-FF-3C, stored as REG_BINARY.
    void SetHexString(const char* name, const char* text);

    // The deleters report nothing. A key below this one goes only if it has none below itself.
    void DeleteValue(const char* name);
    void DeleteKey(const char* name);
    // All values and, at any depth, all keys below this one.
    void DeleteContents();
    void DeleteSubKeys();

    // 1, or 0 at the end and for names of 512 characters and more. `time` may be null.
    int EnumKey(int index, CString& name, CString& className, _FILETIME* time = nullptr) const;
    int EnumValue(int index, CString& name, DWORD& type) const;
    int GetSubkeyCount() const;

private:
    void Replace(HKEY key);
    bool ReadNumber(const char* name, DWORD& value) const;
    bool BinarySize(const char* name, DWORD& size) const;
    bool ReadBinary(const char* name, void* buffer, DWORD size) const;
    void Write(const char* name, DWORD type, const void* data, DWORD size);

    HKEY m_hKey = nullptr;
};
