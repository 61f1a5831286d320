// One private profile, with the library's text forms of values.
//
// Booleans are True or False (also Yes, On, No, Off, in any case), integers decimal (also 0x1F and octal
// 017), hexadecimal numbers eight digits, colours "red, green, blue", blocks two upper-case digits a byte.
// For a key that is missing or empty getters give the default, or 0 where they have none. Of a value of
// another form GetInteger and GetHex take the number that it begins with, 0 without one; GetBoolean and
// GetRGB give the default, all others 0. Setters and deleters report nothing. Other names and lines of the
// file stay as they are. Any thread, one at a time for one object.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"

class COREKIT_API CIniFile : public CObject {
    DECLARE_DYNAMIC(CIniFile)
public:
    // Without a path there is nothing to read. The path is kept as it is given; the file is opened anew at
    // each call.
    CIniFile() = default;
    explicit CIniFile(const char* path) : m_path(path) {}

    // Another file. With bMustExist a file that cannot be read throws message::iniFileMissing; the path is
    // taken nevertheless.
    void Attach(const char* path, int bMustExist = 0);

    const CString& GetPath() const { return m_path; }

    // At most 255 characters of it. An empty value counts as missing. 1, or 0 with `value` untouched.
    int GetString(const char* section, const char* key, CString& value) const;
    // Makes the file, the section and the key as needed; null for the value deletes the key.
    void SetString(const char* section, const char* key, const char* value);

    int GetBoolean(const char* section, const char* key, int fallback) const;
    void SetBoolean(const char* section, const char* key, int value);
    int GetInteger(const char* section, const char* key, int fallback) const; // held at the ends of 32 bits
    void SetInteger(const char* section, const char* key, int value);
    DWORD GetHex(const char* section, const char* key, DWORD fallback) const; // held at 0xFFFFFFFF
    void SetHex(const char* section, const char* key, DWORD value);
    // In braces; 1, or 0 with `id` untouched.
    int GetClassID(const char* section, const char* key, _GUID* id) const;

    void SetClassID(const char* section, const char* key, const _GUID& id);

    // The value must have exactly 2 x size digits, else 0 and nothing is written; what is no digit, small
    // letters too, counts as digit 0. A size below 1 gives 1.
    int GetDataBlock(const char* section, const char* key, void* data, int size) const;
    void SetDataBlock(const char* section, const char* key, const void* data, int size);

    // Red is the low byte, then green, then blue.
    DWORD GetRGB(const char* section, const char* key, DWORD fallback) const;
    void SetRGB(const char* section, const char* key, DWORD colour);

    // The value with each %name% replaced by the user's name (UserName), the machine's (ComputerName) or an
    // environment variable; %name!T3% gives its first three characters. 0 for a missing key, an undefined
    // variable or another form behind the "!"; the output then holds what came before it.
    int GetMacroString(const char* section, const char* key, CString& value) const;

    // Written as a count, "!", and four digits a character with the lowest first; read with the highest
    // first. So a text does not come back as it was set; those of other writers read rightly.
    int GetUnicodeString(const char* section, const char* key, StringW& value) const;
    void SetUnicodeString(const char* section, const char* key, const WCHAR* value);

    // A section with all its keys, or one key.
    void DeleteSection(const char* section);
    void DeleteEntry(const char* section, const char* key);

private:
    CString m_path;
};
