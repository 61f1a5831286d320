#include "corekit/stores/IniFile.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/SystemInfo.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/Guid.h"
#include "corekit/platform/Profiles.h"
#include "corekit/platform/Runtime.h"
#include "corekit/platform/SystemNames.h"
#include "corekit/resources/Messages.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>
#include <vector>

IMPLEMENT_DYNAMIC(CIniFile, CObject)

namespace {
constexpr DWORD stringBuffer = 256;
constexpr DWORD variableBuffer = 1024;
constexpr std::size_t guidLength = 38;
constexpr char hexDigits[] = "0123456789ABCDEF";

// The whole value, however long; empty if it is missing.
std::string wholeValue(const char* file, const char* section, const char* key)
{
    for (std::vector<char> buffer(stringBuffer);; buffer.resize(buffer.size() * 4)) {
        const auto size = static_cast<DWORD>(buffer.size());
        const DWORD length = GetPrivateProfileStringA(section, key, "", buffer.data(), size, file);
        if (length + 1 < size) return std::string(buffer.data(), length);
    }
}

unsigned digit(char c)
{
    if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
    if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A') + 10;
    return 0;
}

// The value of a macro, without its per cent signs.
std::optional<std::string> expandedMacro(std::string macro)
{
    const auto mark = macro.find('!');
    const bool hasForm = mark != std::string::npos && mark > 0;
    const std::string form = hasForm ? macro.substr(mark + 1) : "";
    if (hasForm) macro.resize(mark);
    std::string text;
    if (_stricmp(macro.c_str(), "UserName") == 0) {
        text = SysInfo().GetUserNameA();
    } else if (_stricmp(macro.c_str(), "ComputerName") == 0) {
        text = SysInfo().GetComputerNameA().GetString();
    } else {
        char value[variableBuffer] = "";
        const DWORD length = GetEnvironmentVariableA(macro.c_str(), value, sizeof value);
        if (length == 0 || length >= sizeof value) return std::nullopt;
        text = value;
    }
    if (!hasForm) return text;
    if (form.empty() || (form[0] != 'T' && form[0] != 't')) return std::nullopt;
    const int length = std::atoi(form.c_str() + 1);
    return text.substr(0, static_cast<std::size_t>(std::max(length, 0)));
}
} // namespace

void CIniFile::Attach(const char* path, int bMustExist)
{
    m_path = path; // which may have been this object's own
    if (!bMustExist) return;
    const HANDLE file =
        CreateFileA(m_path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) ThrowChainedException(nullptr, message::iniFileMissing);
    CloseHandle(file);
}

int CIniFile::GetString(const char* section, const char* key, CString& value) const
{
    char buffer[stringBuffer];
    if (GetPrivateProfileStringA(section, key, "", buffer, sizeof buffer, m_path) == 0) return 0;
    value = buffer;
    return 1;
}

void CIniFile::SetString(const char* section, const char* key, const char* value)
{
    WritePrivateProfileStringA(section, key, value, m_path);
}

int CIniFile::GetBoolean(const char* section, const char* key, int fallback) const
{
    CString value;
    if (!GetString(section, key, value)) return fallback;
    const auto isOneOf = [&](std::initializer_list<const char*> words) {
        return std::ranges::any_of(words, [&](const char* word) { return value.CompareNoCase(word) == 0; });
    };
    if (isOneOf({"True", "Yes", "On"})) return 1;
    return isOneOf({"False", "No", "Off"}) ? 0 : fallback;
}

void CIniFile::SetBoolean(const char* section, const char* key, int value)
{
    SetString(section, key, value ? "True" : "False");
}

int CIniFile::GetInteger(const char* section, const char* key, int fallback) const
{
    CString value;
    if (!GetString(section, key, value)) return fallback;
    return static_cast<int>(std::clamp(std::strtol(value, nullptr, 0), long{INT_MIN}, long{INT_MAX}));
}

void CIniFile::SetInteger(const char* section, const char* key, int value)
{
    CString text;
    text.Format("%d", value);
    SetString(section, key, text);
}

DWORD CIniFile::GetHex(const char* section, const char* key, DWORD fallback) const
{
    CString value;
    if (!GetString(section, key, value)) return fallback;
    // Out of the range of 32 bits it is the greatest number, whatever its sign.
    const long long number = std::strtoll(value, nullptr, 16);
    constexpr long long greatestNumber = std::numeric_limits<DWORD>::max();
    return static_cast<DWORD>(number > greatestNumber || number < -greatestNumber ? greatestNumber : number);
}

void CIniFile::SetHex(const char* section, const char* key, DWORD value)
{
    CString text;
    text.Format("%08X", value);
    SetString(section, key, text);
}

int CIniFile::GetClassID(const char* section, const char* key, _GUID* id) const
{
    CString value;
    if (!GetString(section, key, value)) return 0;
    std::u16string wide;
    for (int i = 0; i < value.GetLength(); ++i) wide += static_cast<unsigned char>(value.GetAt(i));
    _GUID found;
    if (CLSIDFromString(wide.c_str(), &found) != 0) return 0;
    *id = found;
    return 1;
}

void CIniFile::SetClassID(const char* section, const char* key, const _GUID& id)
{
    WCHAR wide[guidLength + 1];
    StringFromGUID2(id, wide, static_cast<int>(std::size(wide)));
    SetString(section, key, std::string(wide, wide + guidLength).c_str());
}

int CIniFile::GetDataBlock(const char* section, const char* key, void* data, int size) const
{
    if (size < 1) return 1;
    const std::string text = wholeValue(m_path, section, key);
    if (text.size() != 2 * static_cast<std::size_t>(size)) return 0;
    auto* bytes = static_cast<BYTE*>(data);
    for (std::size_t at = 0; at < text.size(); at += 2)
        *bytes++ = static_cast<BYTE>(digit(text[at]) << 4 | digit(text[at + 1]));
    return 1;
}

void CIniFile::SetDataBlock(const char* section, const char* key, const void* data, int size)
{
    const auto* bytes = static_cast<const BYTE*>(data);
    std::string text;
    for (int i = 0; i < size; ++i) {
        text += hexDigits[bytes[i] >> 4];
        text += hexDigits[bytes[i] & 15];
    }
    SetString(section, key, text.c_str());
}

DWORD CIniFile::GetRGB(const char* section, const char* key, DWORD fallback) const
{
    CString value;
    if (!GetString(section, key, value)) return fallback;
    DWORD colour = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        value.TrimLeft();
        const CString digits = value.SpanIncluding("0123456789");
        const long part = std::strtol(digits, nullptr, 10); // held at the largest
        if (digits.IsEmpty() || part > 255) return fallback;
        colour |= static_cast<DWORD>(part) << shift;
        value = value.Mid(digits.GetLength() + 1);
    }
    return colour;
}

void CIniFile::SetRGB(const char* section, const char* key, DWORD colour)
{
    CString text;
    text.Format("%d, %d, %d", colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF);
    SetString(section, key, text);
}

int CIniFile::GetMacroString(const char* section, const char* key, CString& value) const
{
    CString trimmed(wholeValue(m_path, section, key).c_str());
    value.Empty();
    if (trimmed.IsEmpty()) return 0;
    trimmed.TrimLeft();
    trimmed.TrimRight();
    std::string rest = trimmed.GetString();
    while (!rest.empty()) {
        const auto sign = rest.find('%');
        value += rest.substr(0, sign).c_str();
        if (sign == std::string::npos) break;
        const auto end = rest.find('%', sign + 1);
        const auto expanded =
            expandedMacro(rest.substr(sign + 1, end == std::string::npos ? end : end - sign - 1));
        if (!expanded) return 0;
        value += expanded->c_str();
        rest.erase(0, end == std::string::npos ? end : end + 1);
    }
    return 1;
}

int CIniFile::GetUnicodeString(const char* section, const char* key, StringW& value) const
{
    const std::string text = wholeValue(m_path, section, key);
    const auto mark = text.find('!');
    if (mark == std::string::npos || mark == 0) return 0;
    const long long count = std::atoi(text.c_str());
    if (static_cast<long long>(text.size() - mark - 1) != 4 * count) return 0;
    std::u16string wide;
    for (std::size_t at = mark + 1; at < text.size(); at += 4) {
        unsigned unit = 0;
        for (std::size_t i = 0; i < 4; ++i) unit = unit << 4 | digit(text[at + i]);
        wide += static_cast<char16_t>(unit);
    }
    value = StringW(wide.data(), static_cast<int>(wide.size()));
    return 1;
}

void CIniFile::SetUnicodeString(const char* section, const char* key, const WCHAR* value)
{
    const std::u16string_view wide(value ? value : u"");
    std::string text = std::to_string(wide.size());
    text += '!';
    for (const WCHAR unit : wide)
        for (int shift = 0; shift < 16; shift += 4) text += hexDigits[unit >> shift & 15];
    SetString(section, key, text.c_str());
}

void CIniFile::DeleteSection(const char* section)
{
    WritePrivateProfileStringA(section, nullptr, nullptr, m_path);
}

void CIniFile::DeleteEntry(const char* section, const char* key)
{
    WritePrivateProfileStringA(section, key, nullptr, m_path);
}
