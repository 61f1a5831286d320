// The runtime's character and text functions under one set of names for both widths.
#pragma once

#include "corekit/platform/Runtime.h"
#include "corekit/platform/TextScan.h"

#include <cctype>
#include <cstring>

namespace corekit::detail {

inline int compareFolded(const char* a, const char* b) { return _stricmp(a, b); }
inline int compareFolded(const WCHAR* a, const WCHAR* b) { return crt16::_wcsicmp(a, b); }

inline int compareCollated(const char* a, const char* b) { return std::strcoll(a, b); }
inline int compareCollated(const WCHAR* a, const WCHAR* b) { return crt16::wcscoll(a, b); }

// How many leading characters are in the set, or are not in it. Null is a set of nothing.
inline int countInside(const char* text, const char* set)
{
    return countedLength(std::strspn(text, set ? set : ""));
}
inline int countInside(const WCHAR* text, const WCHAR* set)
{
    return countedLength(crt16::wcsspn(text, set ? set : u""));
}
inline int countOutside(const char* text, const char* set)
{
    return countedLength(std::strcspn(text, set ? set : ""));
}
inline int countOutside(const WCHAR* text, const WCHAR* set)
{
    return countedLength(crt16::wcscspn(text, set ? set : u""));
}

inline void upperInPlace(char* p) { _strupr(p); }
inline void upperInPlace(WCHAR* p) { crt16::_wcsupr(p); }
inline void lowerInPlace(char* p) { _strlwr(p); }
inline void lowerInPlace(WCHAR* p) { crt16::_wcslwr(p); }

// The narrow one is asked with the plain signed value.
inline bool isWhiteSpace(char ch) { return std::isspace(ch) != 0; }
inline bool isWhiteSpace(WCHAR ch) { return crt16::iswspace(ch) != 0; }

} // namespace corekit::detail
