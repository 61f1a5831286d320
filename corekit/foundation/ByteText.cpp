#include "corekit/foundation/ByteText.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

// Two digits, or eight for a byte from 128 up, which is extended with its sign.
std::string hexadecimal(BYTE byte)
{
    char digits[12];
    std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(static_cast<signed char>(byte)));
    return digits;
}

// Adds the byte that one or two hexadecimal digits stand for; false if they stand for none.
bool addParsed(const std::string& digits, CByteArray& bytes)
{
    const long value = std::strtol(digits.c_str(), nullptr, 16);
    if (value == 0 && digits != "0" && digits != "00") return false;
    bytes.Add(static_cast<BYTE>(value));
    return true;
}

std::string_view view(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}
CString toCString(const std::string& text) { return CString(text.data(), static_cast<int>(text.size())); }

// The user string's escape: at most two characters of it are kept, all are counted.
struct Escape {
    bool open = false;
    int count = 0;
    std::string kept;

    void Start() { *this = {true, 0, {}}; }
    void Take(char c)
    {
        if (count++ < 2) kept += c;
    }
};

void appendBigEndian(CByteArray& bytes, long number)
{
    const auto value = static_cast<DWORD>(std::clamp<long>(number, INT_MIN, INT_MAX));
    for (int shift = 24; shift >= 0; shift -= 8) bytes.Add(static_cast<BYTE>(value >> shift));
}

} // namespace

void ConvertByteArrayToUserString(CByteArray& bytes, CString& text)
{
    std::string out;
    for (int i = 0; i < bytes.GetSize(); ++i) {
        const BYTE byte = bytes[i];
        if (byte >= 32 && byte <= 126)
            out += static_cast<char>(byte);
        else
            out += '<' + hexadecimal(byte) + '>';
    }
    text = toCString(out);
}

void ConvertByteArrayToHexString(CByteArray& bytes, CString& text)
{
    std::string out;
    for (int i = 0; i < bytes.GetSize(); ++i) out += hexadecimal(bytes[i]) + ' ';
    text = toCString(out);
}

void ConvertByteArrayToDecString(CByteArray& bytes, CString& text)
{
    std::string out = "(";
    for (int i = 0; i < bytes.GetSize(); i += 4) {
        DWORD value = 0;
        for (int k = i; k < i + 4; ++k) value = value << 8 | bytes.GetAt(k);
        out += std::to_string(static_cast<LONG>(value)) + ',';
    }
    out.back() = ')';
    text = toCString(out);
}

int ConvertUserStringToByteArray(CString& text, CByteArray& bytes)
{
    bytes.RemoveAll();
    int malformed = 0;
    Escape escape;
    for (const char c : view(text)) {
        if (!escape.open && c == '<') {
            escape.Start();
        } else if (!escape.open) {
            bytes.Add(static_cast<BYTE>(c));
        } else if (c == '<') {
            if (escape.count == 0)
                bytes.Add('<');
            else
                malformed = 1;
            escape.open = false;
        } else if (c == '>') {
            if (escape.count < 1 || escape.count > 2 || !addParsed(escape.kept, bytes)) malformed = 1;
            escape.open = false;
        } else {
            escape.Take(c);
        }
    }
    return malformed;
}

int ConvertHexStringToByteArray(CString& text, CByteArray& bytes)
{
    bytes.RemoveAll();
    int malformed = 0;
    std::string_view rest = view(text);
    for (std::size_t end; (end = rest.find(' ')) != rest.npos; rest.remove_prefix(end + 1)) {
        const std::string token(rest.substr(0, std::min<std::size_t>(end, 3)));
        if (token.empty() || token.size() > 2 || !addParsed(token, bytes)) malformed = 1;
    }
    return malformed;
}

int ConvertDecStringToByteArray(CString& text, CByteArray& bytes)
{
    constexpr std::size_t longestNumber = 11; // "-2147483648"
    bytes.RemoveAll();
    std::string number;
    for (const char c : view(text)) {
        if (c == ')' || c == ',') appendBigEndian(bytes, std::strtol(number.c_str(), nullptr, 10));
        if (c == '(' || c == ')' || c == ',')
            number.clear();
        else if (number.size() < longestNumber)
            number += c;
    }
    return 0;
}

StringW ExpandBackslashSequences(const WCHAR* text)
{
    std::u16string out;
    for (; *text; ++text) {
        static constexpr std::u16string_view plain = u"\t\n\r\\", letters = u"tnr\\";
        const std::size_t known = plain.find(*text);
        if (known != plain.npos) {
            out += {u'\\', letters[known]};
        } else if (*text < 32 || *text == 127) {
            for (const char c : "\\x" + hexadecimal(static_cast<BYTE>(*text))) out += static_cast<WCHAR>(c);
        } else {
            out += *text;
        }
    }
    return StringW(out.data(), static_cast<int>(out.size()));
}

StringW CompactBackslashSequences(const WCHAR* text)
{
    const auto parseHex = [](const WCHAR* digits, int count) {
        char narrow[3] = {};
        for (int i = 0; i < count; ++i) narrow[i] = digits[i] < 128 ? static_cast<char>(digits[i]) : '?';
        return static_cast<WCHAR>(std::strtoul(narrow, nullptr, 16));
    };
    std::u16string out;
    while (*text) {
        const WCHAR c = *text++;
        if (c != u'\\' || *text == 0) {
            out += c;
            continue;
        }
        const WCHAR letter = *text++;
        if (letter == u'x' && *text != 0) {
            const int count = text[1] != 0 ? 2 : 1;
            out += parseHex(text, count);
            text += count;
        } else {
            out += letter == u'n' ? u'\n' : letter == u'r' ? u'\r' : letter == u't' ? u'\t' : letter;
        }
    }
    return StringW(out.data(), static_cast<int>(out.size()));
}
