#include "corekit/platform/Runtime.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr unsigned char lowerAscii(unsigned char c) { return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c; }
constexpr unsigned char upperAscii(unsigned char c) { return c >= 'a' && c <= 'z' ? c - ('a' - 'A') : c; }

template <unsigned char (*map)(unsigned char)>
char* mapInPlace(char* text)
{
    // Over a known length the compiler turns this into vector steps.
    const std::size_t length = std::strlen(text);
    for (std::size_t i = 0; i < length; ++i)
        text[i] = static_cast<char>(map(static_cast<unsigned char>(text[i])));
    return text;
}

} // namespace

int _strnicmp(const char* a, const char* b, std::size_t count)
{
    for (; count > 0; ++a, ++b, --count) {
        const int x = lowerAscii(static_cast<unsigned char>(*a));
        const int y = lowerAscii(static_cast<unsigned char>(*b));
        if (x != y || x == 0) return x - y;
    }
    return 0;
}

int _stricmp(const char* a, const char* b) { return _strnicmp(a, b, static_cast<std::size_t>(-1)); }

char* _strupr(char* text) { return mapInPlace<upperAscii>(text); }

char* _strlwr(char* text) { return mapInPlace<lowerAscii>(text); }

char* _strrev(char* text)
{
    std::reverse(text, text + std::strlen(text));
    return text;
}
