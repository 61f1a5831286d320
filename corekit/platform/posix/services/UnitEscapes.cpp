// Texts, names and command lines in the forms that unit files have for them.
#include "corekit/platform/posix/services/UnitText.h"

#include "corekit/platform/CodePages.h"
#include "corekit/platform/posix/files/File.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <sys/stat.h>
#include <utility>

namespace corekit::detail {
namespace {

constexpr std::size_t longestUnitName = 255;
constexpr UINT utf8 = 65001;

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

std::string asNumber(char c)
{
    char text[8];
    std::snprintf(text, sizeof text, "\\x%02x", static_cast<unsigned>(static_cast<unsigned char>(c)));
    return text;
}

// The length of the character that begins here; 0 for what is no UTF-8.
std::size_t characterAt(std::string_view text)
{
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned lead = byte(0);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length == 0 || length > text.size()) return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xC0) != 0x80) return 0;
    const bool isOther = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xED && byte(1) > 0x9F) ||
                         (lead == 0xF0 && byte(1) < 0x90) || (lead == 0xF4 && byte(1) > 0x8F);
    return isOther ? 0 : length;
}

bool isUtf8(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t length = characterAt(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string toUtf8(std::string_view text)
{
    if (isUtf8(text)) return std::string(text);
    const int size = static_cast<int>(text.size());
    std::u16string wide(text.size(), 0);
    wide.resize(static_cast<std::size_t>(
        std::max(MultiByteToWideChar(GetACP(), 0, text.data(), size, wide.data(), size), 0)));
    std::string narrow(wide.size() * 3, 0);
    const int length = WideCharToMultiByte(utf8, 0, wide.data(), static_cast<int>(wide.size()), narrow.data(),
                                           static_cast<int>(narrow.size()), nullptr, nullptr);
    narrow.resize(static_cast<std::size_t>(std::max(length, 0)));
    return narrow;
}

std::string escapeWord(std::string_view word)
{
    const bool keepsBytes = isUtf8(word);
    std::string escaped = "\"";
    for (const char c : word) {
        const bool isForeign = static_cast<unsigned char>(c) >= 0x80 && !keepsBytes;
        if (c == '"' || c == '\\')
            escaped.append("\\").append(1, c);
        else if (c == '%')
            escaped += "%%";
        else if (isControl(c) || isForeign)
            escaped += asNumber(c);
        else
            escaped += c;
    }
    return escaped + "\"";
}

int hexDigit(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// What follows a backslash; moves `at` to its last character.
char unescapeAt(std::string_view text, std::size_t& at)
{
    constexpr std::string_view names = "abfnrtvs", meant = "\a\b\f\n\r\t\v ";
    const char c = text[at];
    if (c == 'x' && at + 2 < text.size() && hexDigit(text[at + 1]) >= 0 && hexDigit(text[at + 2]) >= 0) {
        at += 2;
        return static_cast<char>(hexDigit(text[at - 1]) * 16 + hexDigit(text[at]));
    }
    const std::size_t name = names.find(c);
    return name != names.npos ? meant[name] : c;
}

bool isBlank(char c) { return c == ' ' || c == '\t'; }

// How much of the line, up to a blank or its end, is the name of a file; 0 if nothing is.
std::size_t programSize(std::string_view line)
{
    for (std::size_t end = 0; !line.starts_with('"') && end < line.size(); ++end) {
        end = std::min(line.find(' ', end), line.size());
        struct stat facts;
        const std::string path = nativePath(std::string(line.substr(0, end)).c_str());
        if (::stat(path.c_str(), &facts) == 0 && S_ISREG(facts.st_mode)) return end;
    }
    return 0;
}

} // namespace

std::string unitNameOf(std::string_view serviceName)
{
    constexpr std::string_view suffix = ".service", plain = ":-_.@";
    if (serviceName.ends_with(suffix)) serviceName.remove_suffix(suffix.size());
    std::string name;
    for (const char c : serviceName) {
        const bool isKept = static_cast<unsigned char>(c) < 0x80 &&
                            (std::isalnum(static_cast<unsigned char>(c)) || plain.find(c) != plain.npos);
        name += isKept && !(name.empty() && c == '.') ? std::string(1, c) : asNumber(c);
    }
    name += suffix;
    return serviceName.empty() || name.size() > longestUnitName ? std::string() : name;
}

std::string escapeText(std::string_view text)
{
    std::string line = toUtf8(text);
    std::ranges::replace_if(line, isControl, ' ');
    const std::size_t from = std::min(line.find_first_not_of(' '), line.size());
    line = line.substr(from, line.find_last_not_of(' ') + 1 - from);
    std::string escaped;
    for (const char c : line) escaped.append(c == '%' ? 2 : 1, c);
    return escaped;
}

std::string unescapeText(std::string_view value)
{
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        text += value[i];
        if (value[i] == '%' && i + 1 < value.size() && value[i + 1] == '%') ++i;
    }
    return text;
}

// The colon keeps the manager from replacing variables.
std::string escapeCommand(const std::vector<std::string>& words)
{
    std::string command;
    for (const std::string& word : words)
        command.append(command.empty() ? ":" : " ").append(escapeWord(word));
    return command;
}

std::vector<std::string> unescapeCommand(std::string_view value)
{
    std::vector<std::string> words;
    std::string word;
    bool isIn = false;
    char quote = 0;
    const auto end = [&] {
        if (isIn) words.push_back(std::exchange(word, {}));
        isIn = false;
    };
    if (value.starts_with(':')) value.remove_prefix(1);
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char c = value[i];
        if (!quote && isBlank(c)) {
            end();
            continue;
        }
        isIn = true;
        if (quote ? c == quote : c == '"' || c == '\'')
            quote = quote ? 0 : c;
        else if (c == '\\' && i + 1 < value.size())
            word += unescapeAt(value, ++i);
        else
            word += c;
        if (c == '%' && i + 1 < value.size() && value[i + 1] == '%') ++i;
    }
    end();
    return words;
}

std::vector<std::string> splitCommandLine(std::string_view text)
{
    std::vector<std::string> words;
    text = text.substr(std::min(text.find_first_not_of(' '), text.size()));
    if (const std::size_t size = programSize(text); size > 0) {
        words.emplace_back(text.substr(0, size));
        text.remove_prefix(size);
    }
    std::string word;
    bool isIn = false, isQuoted = false;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        if (i == text.size() || (!isQuoted && isBlank(text[i]))) {
            if (isIn) words.push_back(std::exchange(word, {}));
            isIn = false;
            continue;
        }
        isIn = true;
        if (text[i] == '\\' && i + 1 < text.size() && text[i + 1] == '"')
            word += text[++i];
        else if (text[i] == '"')
            isQuoted = !isQuoted;
        else
            word += text[i];
    }
    if (!words.empty()) words.front() = nativePath(words.front().c_str());
    return words;
}

} // namespace corekit::detail
