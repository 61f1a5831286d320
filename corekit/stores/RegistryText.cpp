#include "corekit/stores/RegistryText.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/CodePages.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/RegistryKey.h"

#include <charconv>
#include <optional>

namespace {
constexpr char hexDigits[] = "0123456789ABCDEF";
constexpr std::string_view blanks = " \t\r";
constexpr int deepest = 512;

[[noreturn]] void refuse(const char* reason) { ThrowChainedException(nullptr, reason); }

std::u16string widened(UINT page, std::string_view text)
{
    const int size = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(page, 0, text.data(), size, nullptr, 0);
    std::u16string wide(static_cast<std::size_t>(length), u'\0');
    MultiByteToWideChar(page, 0, text.data(), size, wide.data(), length);
    return wide;
}

std::string narrowed(UINT page, const std::u16string& wide)
{
    const int size = static_cast<int>(wide.size());
    const int length = WideCharToMultiByte(page, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(page, 0, wide.data(), size, text.data(), length, nullptr, nullptr);
    return text;
}

// Nothing if the way back would give something else.
std::optional<std::string> converted(UINT from, UINT to, std::string_view text)
{
    if (text.empty()) return std::string();
    const std::u16string wide = widened(from, text);
    std::string result = narrowed(to, wide);
    if (narrowed(from, widened(to, result)) != text) return std::nullopt;
    return result;
}

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

void appendHex(std::string& to, unsigned char byte)
{
    to += hexDigits[byte >> 4];
    to += hexDigits[byte & 15];
}

int hexDigit(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

std::string quotedText(std::string_view utf8)
{
    std::string quoted = "\"";
    for (const char c : utf8) {
        if (c == '"' || c == '\\') {
            quoted += '\\';
            quoted += c;
        } else if (c == '\n') {
            quoted += "\\n";
        } else if (c == '\r') {
            quoted += "\\r";
        } else if (c == '\t') {
            quoted += "\\t";
        } else if (static_cast<unsigned char>(c) < 0x20) {
            quoted += "\\x";
            appendHex(quoted, static_cast<unsigned char>(c));
        } else {
            quoted += c;
        }
    }
    return quoted += '"';
}

// Reads what follows a backslash; `at` comes to stand on its last character.
char escaped(std::string_view text, std::size_t& at)
{
    switch (text[at]) {
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    case '"':
    case '\\':
        return text[at];
    case 'x': {
        const int high = at + 2 < text.size() ? hexDigit(text[at + 1]) : -1;
        const int low = high >= 0 ? hexDigit(text[at + 2]) : -1;
        if (low < 0 || high > 7 || high + low == 0) refuse("a wrong \\x in a text");
        at += 2;
        return static_cast<char>(high << 4 | low);
    }
    default:
        refuse("an unknown sign behind a \\");
    }
}

// Takes a quoted text off the front; what it gives is in the active code page.
std::string unquoted(std::string_view& text)
{
    if (!text.starts_with('"')) refuse("a quoted text is missing");
    std::string utf8;
    std::size_t at = 1;
    for (; at < text.size() && text[at] != '"'; ++at) {
        if (text[at] != '\\') {
            utf8 += text[at];
            continue;
        }
        if (++at == text.size()) break;
        utf8 += escaped(text, at);
    }
    if (at >= text.size()) refuse("a closing quotation mark is missing");
    text.remove_prefix(at + 1);
    auto narrow = converted(CP_UTF8, CP_ACP, utf8);
    if (!narrow) refuse("a text with characters that the active code page does not have");
    return *std::move(narrow);
}

std::string bytesOf(std::string_view text)
{
    std::string bytes;
    for (std::size_t at = 0; at < text.size();) {
        if (blanks.find(text[at]) != std::string_view::npos) {
            ++at;
            continue;
        }
        const int high = hexDigit(text[at]), low = at + 1 < text.size() ? hexDigit(text[at + 1]) : -1;
        if (high < 0 || low < 0) refuse("bytes must be pairs of hexadecimal digits");
        bytes += static_cast<char>(high << 4 | low);
        at += 2;
    }
    return bytes;
}

std::string dump(const std::string& bytes)
{
    std::string text;
    for (const char c : bytes) {
        text += ' ';
        appendHex(text, static_cast<unsigned char>(c));
    }
    return text;
}

// The text, if it ends with its only zero and can be written in UTF-8.
std::optional<std::string> plainText(const std::string& data)
{
    if (data.empty() || data.find('\0') != data.size() - 1) return std::nullopt;
    return converted(CP_ACP, CP_UTF8, std::string_view(data).substr(0, data.size() - 1));
}

std::optional<std::string> plainTexts(const std::string& data)
{
    if (data.empty() || data.back() != '\0') return std::nullopt;
    std::string line;
    for (std::size_t at = 0; at < data.size() - 1;) {
        const std::size_t end = data.find('\0', at);
        // An empty text would end the list, and the last one needs a zero of its own.
        if (end == at || end == data.size() - 1) return std::nullopt;
        const auto part = converted(CP_ACP, CP_UTF8, std::string_view(data).substr(at, end - at));
        if (!part) return std::nullopt;
        line += ' ';
        line += quotedText(*part);
        at = end + 1;
    }
    return line;
}

DWORD parseNumber(std::string_view text)
{
    DWORD number = 0;
    const bool hex = text.starts_with("0x");
    if (hex) text.remove_prefix(2);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, hex ? 16 : 10);
    if (text.empty() || error != std::errc() || end != text.data() + text.size())
        refuse("a number of 32 bits is missing");
    return number;
}

// Control characters and % as %XX, so that a path stays on its line.
std::string escapedPath(std::string_view utf8)
{
    std::string path;
    for (const char c : utf8) {
        if (static_cast<unsigned char>(c) >= 0x20 && c != '%') {
            path += c;
        } else {
            path += '%';
            appendHex(path, static_cast<unsigned char>(c));
        }
    }
    return path;
}

std::string pathOf(std::string_view line)
{
    if (line.size() < 3 || line.back() != ']') refuse("a key must stand between [ and ]");
    line = line.substr(1, line.size() - 2);
    std::string utf8;
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (line[at] != '%') {
            utf8 += line[at];
            continue;
        }
        const int high = at + 2 < line.size() ? hexDigit(line[at + 1]) : -1;
        const int low = high >= 0 ? hexDigit(line[at + 2]) : -1;
        if (low < 0 || high + low == 0) refuse("a wrong % in a key");
        utf8 += static_cast<char>(high << 4 | low);
        at += 2;
    }
    auto narrow = converted(CP_UTF8, CP_ACP, utf8);
    if (!narrow) refuse("a key with characters that the active code page does not have");
    return *std::move(narrow);
}

void exportKey(HKEY key, const std::string& path, int depth, std::string& text)
{
    text += "\n[" + escapedPath(converted(CP_ACP, CP_UTF8, path).value_or("?")) + "]\n";
    for (const std::string& name : RegistryValueNames(key)) {
        RegistryItem item;
        if (!ReadRegistryItem(key, name.c_str(), item)) continue;
        text += quotedText(converted(CP_ACP, CP_UTF8, name).value_or("?")) + " = " +
                FormatRegistryValue(item) + "\n";
    }
    if (depth == deepest) return;
    for (const std::string& name : RegistryKeyNames(key)) {
        CRegistryKey child;
        if (child.Open(key, name.c_str(), KEY_READ)) exportKey(child, path + "\\" + name, depth + 1, text);
    }
}

// Walks the lines once; only a second walk, with `apply`, changes anything.
int walkLines(std::string_view text, bool apply, int& number)
{
    CRegistryKey key;
    bool inKey = false;
    int values = 0;
    for (number = 1; !text.empty(); ++number) {
        const auto feed = text.find('\n');
        std::string_view line = trimmed(text.substr(0, feed));
        text.remove_prefix(feed == std::string_view::npos ? text.size() : feed + 1);
        if (line.empty() || line.front() == ';') continue;
        if (line.front() == '[') {
            std::string path;
            const HKEY hive = SplitRegistryPath(pathOf(line), path);
            if (path.starts_with('\\')) refuse("a key's name is missing");
            inKey = true;
            if (apply) key.Create(hive, path.c_str());
            continue;
        }
        const std::string name = unquoted(line);
        line = trimmed(line);
        if (!line.starts_with('=')) refuse("a = is missing");
        const RegistryItem item = ParseRegistryValue(line.substr(1));
        if (!inKey) refuse("a value before the first key");
        ++values;
        if (!apply) continue;
        const LONG code =
            RegSetValueExA(key, name.c_str(), 0, item.type, reinterpret_cast<const BYTE*>(item.data.data()),
                           static_cast<DWORD>(item.data.size()));
        if (code != 0)
            ThrowChainedException(GetLastErrorException(static_cast<DWORD>(code)), message::setValueFailed);
    }
    return values;
}
} // namespace

std::string FormatRegistryValue(const RegistryItem& item)
{
    if (item.type == REG_SZ || item.type == REG_EXPAND_SZ) {
        if (const auto text = plainText(item.data))
            return (item.type == REG_SZ ? "text " : "expand ") + quotedText(*text);
    } else if (item.type == REG_MULTI_SZ) {
        if (const auto texts = plainTexts(item.data)) return "texts" + *texts;
    } else if (item.type == REG_DWORD && item.data.size() == 4) {
        DWORD number = 0;
        for (std::size_t i = 4; i-- > 0;) number = number << 8 | static_cast<unsigned char>(item.data[i]);
        return "number " + std::to_string(number);
    } else if (item.type == REG_BINARY) {
        return "binary" + dump(item.data);
    }
    return "type " + std::to_string(item.type) + dump(item.data);
}

RegistryItem ParseRegistryValue(std::string_view text)
{
    text = trimmed(text);
    const std::string_view form = text.substr(0, text.find_first_of(blanks));
    text = trimmed(text.substr(form.size()));
    RegistryItem item;
    if (form == "text" || form == "expand") {
        item = {form == "text" ? REG_SZ : REG_EXPAND_SZ, unquoted(text) + '\0'};
        if (!trimmed(text).empty()) refuse("more behind the text");
    } else if (form == "texts") {
        item.type = REG_MULTI_SZ;
        for (; !text.empty(); text = trimmed(text)) {
            const std::string part = unquoted(text);
            if (part.empty()) refuse("an empty text in a list");
            item.data += part + '\0';
        }
        item.data += '\0';
    } else if (form == "number") {
        item.type = REG_DWORD;
        for (DWORD number = parseNumber(text), i = 0; i < 4; ++i)
            item.data += static_cast<char>(number >> 8 * i);
    } else if (form == "binary") {
        item = {REG_BINARY, bytesOf(text)};
    } else if (form == "type") {
        const std::string_view type = text.substr(0, text.find_first_of(blanks));
        item = {parseNumber(type), bytesOf(text.substr(type.size()))};
    } else {
        refuse("a value must be text, expand, texts, number, binary or type");
    }
    return item;
}

HKEY SplitRegistryPath(const std::string& full, std::string& path)
{
    const auto slash = full.find('\\');
    const std::string first = full.substr(0, slash);
    const std::string rest = slash == std::string::npos ? "" : full.substr(slash + 1);
    const bool machine = first == "HKEY_LOCAL_MACHINE" || first == "HKLM";
    const bool user = first == "HKEY_CURRENT_USER" || first == "HKCU";
    path = machine || user ? rest : full;
    return user ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

bool ReadRegistryItem(HKEY key, const char* name, RegistryItem& item)
{
    DWORD size = 0;
    if (RegQueryValueExA(key, name, nullptr, &item.type, nullptr, &size) != 0) return false;
    item.data.resize(size);
    const LONG code =
        RegQueryValueExA(key, name, nullptr, &item.type, reinterpret_cast<BYTE*>(item.data.data()), &size);
    item.data.resize(code == 0 ? size : 0);
    return code == 0;
}

std::string ExportRegistry(const std::string& fullPath)
{
    std::string path;
    const HKEY hive = SplitRegistryPath(fullPath, path);
    HKEY opened = nullptr;
    const LONG code = RegOpenKeyExA(hive, path.c_str(), 0, KEY_READ, &opened);
    if (code != 0) ThrowChainedException(GetLastErrorException(static_cast<DWORD>(code)), fullPath.c_str());
    const std::string root = hive == HKEY_CURRENT_USER ? "HKEY_CURRENT_USER" : "HKEY_LOCAL_MACHINE";
    std::string text = "; registry\n";
    exportKey(opened, path.empty() ? root : root + "\\" + path, 0, text);
    RegCloseKey(opened);
    return text;
}

int ImportRegistry(std::string_view text)
{
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    int line = 0;
    try {
        walkLines(text, false, line);
        return walkLines(text, true, line);
    } catch (CException* e) {
        CString message;
        message.Format("Line %d of the registry text", line);
        ThrowChainedException(e, message);
    }
}
