#include "corekit/stores/RegistryKey.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Guid.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/RegistryNames.h"

#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <utility>
#include <vector>

IMPLEMENT_DYNAMIC(CRegistryKey, CObject)

namespace {
constexpr DWORD readWrite = 0x2001F;
constexpr int enumBuffer = 512;
constexpr int guidBuffer = 39;

void check(LONG code, UINT messageId)
{
    if (code != 0) ThrowChainedException(GetLastErrorException(static_cast<DWORD>(code)), messageId);
}
} // namespace

CRegistryKey::~CRegistryKey() { Replace(nullptr); }

void CRegistryKey::Replace(HKEY key)
{
    if (m_hKey) RegCloseKey(m_hKey);
    m_hKey = key;
}

void CRegistryKey::Create(HKEY parent, const char* subKey, DWORD options, DWORD access,
                          _SECURITY_ATTRIBUTES* security)
{
    HKEY key = nullptr;
    check(RegCreateKeyExA(parent, subKey, 0, "", options, access, security, &key, nullptr),
          message::createKeyFailed);
    Replace(key);
}

int CRegistryKey::Open(HKEY parent, const char* subKey, DWORD access)
{
    HKEY key = nullptr;
    if (RegOpenKeyExA(parent, subKey, 0, access, &key) != 0) return 0;
    Replace(key);
    return 1;
}

int CRegistryKey::OpenRemoteKey(const char* machine, HKEY hive)
{
    // One more, however many there are already.
    const std::string name = std::string("\\") + (machine ? machine : "");
    HKEY key = nullptr;
    if (RegConnectRegistryA(name.c_str(), hive, &key) != 0) return 0;
    Replace(key);
    return 1;
}

void CRegistryKey::Attach(HKEY key)
{
    HKEY own = nullptr;
    RegOpenKeyExA(key, nullptr, 0, readWrite, &own);
    Replace(own);
}

HKEY CRegistryKey::Detach() { return std::exchange(m_hKey, nullptr); }

void CRegistryKey::Close()
{
    check(RegCloseKey(m_hKey), message::closeKeyFailed);
    m_hKey = nullptr;
}

bool CRegistryKey::ReadNumber(const char* name, DWORD& value) const
{
    BYTE bytes[sizeof(DWORD)];
    DWORD type = REG_NONE, size = sizeof bytes;
    if (RegQueryValueExA(m_hKey, name, nullptr, &type, bytes, &size) != 0) return false;
    if (type != REG_DWORD || size != sizeof bytes) return false;
    std::memcpy(&value, bytes, sizeof value);
    return true;
}

bool CRegistryKey::BinarySize(const char* name, DWORD& size) const
{
    DWORD type = REG_NONE;
    return RegQueryValueExA(m_hKey, name, nullptr, &type, nullptr, &size) == 0 && type == REG_BINARY;
}

bool CRegistryKey::ReadBinary(const char* name, void* buffer, DWORD size) const
{
    DWORD found = 0;
    return BinarySize(name, found) && found == size &&
           RegQueryValueExA(m_hKey, name, nullptr, nullptr, static_cast<BYTE*>(buffer), &found) == 0;
}

int CRegistryKey::GetValue(const char* name, CString& value) const
{
    constexpr DWORD spare = 16;
    DWORD type = REG_NONE, size = 0;
    if (RegQueryValueExA(m_hKey, name, nullptr, &type, nullptr, &size) != 0 || type != REG_SZ) return 0;
    if (size > static_cast<DWORD>(std::numeric_limits<int>::max()) - spare) return 0;
    std::string text(size + spare, '\0');
    size += spare - 1;
    if (RegQueryValueExA(m_hKey, name, nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size) != 0)
        return 0;
    if (type != REG_SZ) return 0;
    value = text.c_str();
    return 1;
}

int CRegistryKey::GetValue(const char* name, int& value) const
{
    DWORD number = 0;
    if (!ReadNumber(name, number)) return 0;
    value = static_cast<int>(number);
    return 1;
}

int CRegistryKey::GetValue(const char* name, unsigned int& value) const { return ReadNumber(name, value); }

int CRegistryKey::GetValue(const char* name, long& value) const
{
    int number = 0;
    if (!GetValue(name, number)) return 0;
    value = number;
    return 1;
}

int CRegistryKey::GetValue(const char* name, unsigned long& value) const
{
    DWORD number = 0;
    if (!ReadNumber(name, number)) return 0;
    value = number;
    return 1;
}

int CRegistryKey::GetValue(const char* name, void* buffer, DWORD size) const
{
    return ReadBinary(name, buffer, size);
}

int CRegistryKey::GetValue(const char* name, CRect& value) const
{
    RECT rect;
    if (!ReadBinary(name, &rect, sizeof rect)) return 0;
    value = rect;
    return 1;
}

int CRegistryKey::GetValue(const char* name, unsigned long long& value) const
{
    return ReadBinary(name, &value, sizeof value);
}

int CRegistryKey::GetValue(const char* name, CByteArray& value) const
{
    DWORD size = 0;
    if (!BinarySize(name, size) || size > static_cast<DWORD>(std::numeric_limits<int>::max())) return 0;
    value.SetSize(static_cast<int>(size));
    if (ReadBinary(name, value.GetData(), size)) return 1;
    value.RemoveAll();
    return 0;
}

int CRegistryKey::GetValue(const char* name, _GUID& value) const
{
    CString text;
    if (!GetValue(name, text)) return 0;
    std::u16string wide;
    for (int i = 0; i < text.GetLength(); ++i) wide += static_cast<unsigned char>(text.GetAt(i));
    _GUID guid;
    if (CLSIDFromString(wide.c_str(), &guid) != 0) return 0;
    value = guid;
    return 1;
}

int CRegistryKey::GetValue(const char* name, CArray<int, int>& value) const
{
    DWORD size = 0;
    if (!BinarySize(name, size) || size % 4 != 0) return 0;
    value.SetSize(static_cast<int>(size / 4));
    return ReadBinary(name, value.GetData(), size);
}

int CRegistryKey::GetValue(const char* name, CWordArray& value) const
{
    DWORD size = 0;
    if (!BinarySize(name, size) || size % 4 != 0) return 0;
    std::vector<BYTE> bytes(size);
    if (!ReadBinary(name, bytes.data(), size)) return 0;
    value.SetSize(static_cast<int>(size / 4));
    if (size > 0) std::memcpy(value.GetData(), bytes.data(), size / 2);
    return 1;
}

void CRegistryKey::Write(const char* name, DWORD type, const void* data, DWORD size)
{
    check(RegSetValueExA(m_hKey, name, 0, type, static_cast<const BYTE*>(data), size),
          message::setValueFailed);
}

void CRegistryKey::SetValue(const char* name, const char* value)
{
    const char* text = value ? value : "";
    Write(name, REG_SZ, text, static_cast<DWORD>(std::strlen(text)) + 1);
}

void CRegistryKey::SetValue(const char* name, const CString& value) { SetValue(name, value.GetString()); }
void CRegistryKey::SetValue(const char* name, int value) { SetValue(name, static_cast<unsigned int>(value)); }
void CRegistryKey::SetValue(const char* name, unsigned int value)
{
    Write(name, REG_DWORD, &value, sizeof value);
}
void CRegistryKey::SetValue(const char* name, long value)
{
    SetValue(name, static_cast<unsigned int>(value));
}
void CRegistryKey::SetValue(const char* name, unsigned long value)
{
    SetValue(name, static_cast<unsigned int>(value));
}

void CRegistryKey::SetValue(const char* name, const void* data, DWORD size)
{
    Write(name, REG_BINARY, data, size);
}
void CRegistryKey::SetValue(const char* name, const CRect& value)
{
    const RECT& rect = value;
    Write(name, REG_BINARY, &rect, sizeof rect);
}
void CRegistryKey::SetValue(const char* name, unsigned long long value)
{
    Write(name, REG_BINARY, &value, sizeof value);
}
void CRegistryKey::SetValue(const char* name, const CByteArray& value)
{
    Write(name, REG_BINARY, value.GetData(), static_cast<DWORD>(value.GetSize()));
}

void CRegistryKey::SetValue(const char* name, const _GUID& value)
{
    WCHAR wide[guidBuffer];
    char text[guidBuffer];
    StringFromGUID2(value, wide, guidBuffer);
    for (int i = 0; i < guidBuffer; ++i) text[i] = static_cast<char>(wide[i]);
    SetValue(name, text);
}

void CRegistryKey::SetHexString(const char* name, const char* text)
{
    const std::string pairs = std::string(text ? text : "") + "-";
    std::vector<BYTE> bytes;
    for (std::size_t at = 0; at + 3 <= pairs.size(); at += 3)
        bytes.push_back(static_cast<BYTE>(std::strtol(pairs.substr(at, 2).c_str(), nullptr, 16)));
    SetValue(name, bytes.data(), static_cast<DWORD>(bytes.size()));
}

void CRegistryKey::DeleteValue(const char* name) { RegDeleteValueA(m_hKey, name); }
void CRegistryKey::DeleteKey(const char* name) { RegDeleteKeyA(m_hKey, name); }

void CRegistryKey::DeleteContents()
{
    for (const std::string& name : RegistryValueNames(m_hKey)) RegDeleteValueA(m_hKey, name.c_str());
    DeleteSubKeys();
}

void CRegistryKey::DeleteSubKeys()
{
    for (const std::string& name : RegistryKeyNames(m_hKey)) {
        CRegistryKey child;
        if (child.Open(m_hKey, name.c_str(), readWrite)) {
            child.DeleteContents();
            child.Close();
        }
        RegDeleteKeyA(m_hKey, name.c_str());
    }
}

int CRegistryKey::EnumKey(int index, CString& name, CString& className, _FILETIME* time) const
{
    char key[enumBuffer], keyClass[enumBuffer];
    DWORD keySize = sizeof key, classSize = sizeof keyClass;
    if (RegEnumKeyExA(m_hKey, static_cast<DWORD>(index), key, &keySize, nullptr, keyClass, &classSize,
                      time) != 0)
        return 0;
    name = key;
    className = keyClass;
    return 1;
}

int CRegistryKey::EnumValue(int index, CString& name, DWORD& type) const
{
    char value[enumBuffer];
    DWORD size = sizeof value, found = REG_NONE;
    if (RegEnumValueA(m_hKey, static_cast<DWORD>(index), value, &size, nullptr, &found, nullptr, nullptr) !=
        0)
        return 0;
    name = value;
    type = found;
    return 1;
}

int CRegistryKey::GetSubkeyCount() const
{
    CString name, className;
    int count = 0;
    while (EnumKey(count, name, className)) ++count;
    return count;
}
