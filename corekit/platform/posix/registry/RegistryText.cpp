#include "corekit/platform/posix/registry/RegistryText.h"

#include "corekit/platform/CodePages.h"

#include <algorithm>
#include <unicode/uchar.h>
#include <unicode/ustring.h>
#include <unicode/utf8.h>

namespace {
bool isAscii(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::u16string widen(std::string_view narrow)
{
    const int size = static_cast<int>(narrow.size());
    const int length = MultiByteToWideChar(CP_ACP, 0, narrow.data(), size, nullptr, 0);
    std::u16string wide(static_cast<std::size_t>(length), u'\0');
    MultiByteToWideChar(CP_ACP, 0, narrow.data(), size, wide.data(), length);
    return wide;
}

std::string narrowed(const std::u16string& wide)
{
    const int size = static_cast<int>(wide.size());
    const int length = WideCharToMultiByte(CP_ACP, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), size, narrow.data(), length, nullptr, nullptr);
    return narrow;
}
} // namespace

namespace corekit::detail {

std::optional<std::string> narrowToUtf8(std::string_view narrow)
{
    if (isAscii(narrow)) return std::string(narrow);
    const std::u16string wide = widen(narrow);
    std::string utf8(wide.size() * 3, '\0');
    int32_t length = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strToUTF8(utf8.data(), static_cast<int32_t>(utf8.size()), &length, wide.data(),
                static_cast<int32_t>(wide.size()), &error);
    if (U_FAILURE(error) || narrowed(wide) != narrow) return std::nullopt;
    utf8.resize(static_cast<std::size_t>(length));
    return utf8;
}

std::string utf8ToNarrow(std::string_view utf8)
{
    if (isAscii(utf8)) return std::string(utf8);
    std::u16string wide(utf8.size(), u'\0');
    int32_t length = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strFromUTF8WithSub(wide.data(), static_cast<int32_t>(wide.size()), &length, utf8.data(),
                         static_cast<int32_t>(utf8.size()), 0xFFFD, nullptr, &error);
    wide.resize(static_cast<std::size_t>(length));
    return narrowed(wide);
}

bool isLeadByte(char c)
{
    const auto byte = static_cast<BYTE>(c);
    return byte >= 0x80 && IsDBCSLeadByteEx(CP_ACP, byte);
}

std::size_t findSign(std::string_view narrow, char sign)
{
    const std::size_t found = narrow.find(sign);
    if (found == narrow.npos || found == 0 || isAscii(narrow.substr(found - 1, 1))) return found;
    for (std::size_t at = 0; at < narrow.size(); at += isLeadByte(narrow[at]) ? 2 : 1)
        if (narrow[at] == sign) return at;
    return narrow.npos;
}

bool endsWithSign(std::string_view narrow, char sign)
{
    if (!narrow.ends_with(sign)) return false;
    const std::size_t last = narrow.size() - 1;
    if (last == 0 || isAscii(narrow.substr(last - 1, 1))) return true;
    std::size_t at = 0;
    while (at < last) at += isLeadByte(narrow[at]) ? 2 : 1;
    return at == last;
}

std::string foldName(std::string_view utf8)
{
    std::string folded;
    folded.reserve(utf8.size());
    const auto size = static_cast<int32_t>(utf8.size());
    for (int32_t at = 0; at < size;) {
        UChar32 c;
        U8_NEXT_OR_FFFD(utf8.data(), at, size, c);
        char units[U8_MAX_LENGTH];
        int32_t count = 0;
        U8_APPEND_UNSAFE(units, count, u_toupper(c));
        folded.append(units, static_cast<std::size_t>(count));
    }
    return folded;
}

} // namespace corekit::detail
