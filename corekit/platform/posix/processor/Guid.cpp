#include "corekit/platform/Guid.h"

#include <array>
#include <cstring>
#include <string_view>

namespace {
constexpr std::u16string_view form = u"{00000000-0000-0000-0000-000000000000}";
// The order in which the bytes of the structure stand in the text.
constexpr std::array<int, 16> byteOrder = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};

int digitOf(WCHAR c)
{
    if (c >= u'0' && c <= u'9') return c - u'0';
    if (c >= u'A' && c <= u'F') return c - u'A' + 10;
    if (c >= u'a' && c <= u'f') return c - u'a' + 10;
    return -1;
}
} // namespace

HRESULT CLSIDFromString(const WCHAR* text, GUID* guid)
{
    *guid = GUID();
    if (!text || *text == 0) return 0;
    if (std::u16string_view(text).size() != form.size()) return CO_E_CLASSSTRING;
    std::array<BYTE, 16> bytes{};
    for (std::size_t i = 0, digit = 0; i < form.size(); ++i) {
        if (form[i] != u'0') {
            if (text[i] != form[i]) return CO_E_CLASSSTRING;
            continue;
        }
        const int value = digitOf(text[i]);
        if (value < 0) return CO_E_CLASSSTRING;
        BYTE& byte = bytes[static_cast<std::size_t>(byteOrder[digit++ / 2])];
        byte = static_cast<BYTE>(byte << 4 | value);
    }
    std::memcpy(guid, bytes.data(), sizeof *guid);
    return 0;
}

int StringFromGUID2(const GUID& guid, WCHAR* text, int size)
{
    if (size <= static_cast<int>(form.size())) return 0;
    std::array<BYTE, 16> bytes;
    std::memcpy(bytes.data(), &guid, sizeof guid);
    for (std::size_t i = 0, digit = 0; i < form.size(); ++i) {
        text[i] = form[i];
        if (form[i] != u'0') continue;
        const BYTE byte = bytes[static_cast<std::size_t>(byteOrder[digit / 2])];
        text[i] = u"0123456789ABCDEF"[digit++ % 2 == 0 ? byte >> 4 : byte & 15];
    }
    text[form.size()] = 0;
    return static_cast<int>(form.size()) + 1;
}
