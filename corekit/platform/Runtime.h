// Text functions of the platform's C runtime under their documented names.
//
// The 16-bit forms stand in namespace crt16, since the machine's own wchar_t is 32 bits wide. Text is
// zero-terminated unless a view is passed; a count is in 16-bit units. None takes a null pointer.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <cstddef>
#include <string_view>

// Narrow text: case means the letters A to Z alone, order is that of unsigned bytes.
COREKIT_API int _stricmp(const char* a, const char* b);
COREKIT_API int _strnicmp(const char* a, const char* b, std::size_t count);
// Each changes text in place and returns it.
COREKIT_API char* _strupr(char* text);
COREKIT_API char* _strlwr(char* text);
COREKIT_API char* _strrev(char* text);

namespace crt16 {

COREKIT_API std::size_t wcslen(const WCHAR* text);

// Order by unsigned unit: below 0, 0 or above 0. wcscoll has the order of the C locale, which is the same.
COREKIT_API int wcscmp(const WCHAR* a, const WCHAR* b);
COREKIT_API int wcsncmp(const WCHAR* a, const WCHAR* b, std::size_t count);
COREKIT_API int wcscoll(const WCHAR* a, const WCHAR* b);
// As wcscmp after each unit went through towlower.
COREKIT_API int _wcsicmp(const WCHAR* a, const WCHAR* b);

// How many units from the start are (wcscspn: are not) in set.
COREKIT_API std::size_t wcsspn(const WCHAR* text, const WCHAR* set);
COREKIT_API std::size_t wcscspn(const WCHAR* text, const WCHAR* set);
// The first unit of text that is in set, or null.
COREKIT_API const WCHAR* wcspbrk(const WCHAR* text, const WCHAR* set);

// Each changes text in place and returns it.
COREKIT_API WCHAR* _wcsupr(WCHAR* text);
COREKIT_API WCHAR* _wcslwr(WCHAR* text);
COREKIT_API WCHAR* _wcsrev(WCHAR* text);

// One unit's simple mapping within 16 bits, whatever locale the process has set; a unit without one, and a
// surrogate, stays.
COREKIT_API WCHAR towupper(WCHAR unit);
COREKIT_API WCHAR towlower(WCHAR unit);
// Spaces, tabs and line ends, the no-break space included. Not 0 when it is one.
COREKIT_API int iswspace(WCHAR unit);

// The integer at the start of text, after white space and a sign; held at the 32-bit limits.
COREKIT_API int _wtoi(const WCHAR* text);

inline constexpr std::size_t npos = std::u16string_view::npos;
// The first place of needle or of a unit at or after from, or npos. An empty needle is found at from itself
// as long as that lies within hay.
COREKIT_API std::size_t find(std::u16string_view hay, std::u16string_view needle, std::size_t from = 0);
COREKIT_API std::size_t find(std::u16string_view hay, WCHAR unit, std::size_t from = 0);

} // namespace crt16
