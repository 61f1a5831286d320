// Conversion between narrow text in a code page and UTF-16.
//
// Every page that the machine has a converter for can be used: EnumSystemCodePagesA tells which. Lengths are
// in bytes on the narrow and in 16-bit units on the wide side; -1 means up to and including the terminator.
// Any thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <cstddef>

inline constexpr UINT CP_ACP = 0;   // what GetACP tells
inline constexpr UINT CP_OEMCP = 1; // what GetOEMCP tells
inline constexpr UINT CP_THREAD_ACP = 3;
inline constexpr UINT CP_UTF7 = 65000;
inline constexpr UINT CP_UTF8 = 65001;

inline constexpr DWORD MB_PRECOMPOSED = 1; // accepted, as is the next: changes nothing
inline constexpr DWORD MB_USEGLYPHCHARS = 4;
inline constexpr DWORD MB_ERR_INVALID_CHARS = 8;
inline constexpr DWORD WC_ERR_INVALID_CHARS = 0x80;  // for CP_UTF8
inline constexpr DWORD WC_NO_BEST_FIT_CHARS = 0x400; // accepted: there is no best fit here

// The active code page, which follows the language of the process's locale. COREKIT_CODEPAGE in the
// environment overrides it. Read once.
COREKIT_API UINT GetACP();
// The one that consoles of that language use.
COREKIT_API UINT GetOEMCP();

// Both write at most size units of the result and return its full length, or with size 0 only tell the
// length. Return 0 on failure: last error 122 when size is too small (what fits has been written), 87 for a
// wrong argument or an unknown page, 1004 for flags, 1113 for text that stands for nothing when a flag
// forbids that. Without the flag it becomes U+FFFD.
COREKIT_API int MultiByteToWideChar(UINT codePage, DWORD flags, const char* text, int length, WCHAR* result,
                                    int size);
// What the page cannot hold becomes defaultChar ("?" when null, "\xEF\xBF\xBD" in UTF-8); *usedDefault tells
// whether that happened. Both must be null for CP_UTF8.
COREKIT_API int WideCharToMultiByte(UINT codePage, DWORD flags, const WCHAR* text, int length, char* result,
                                    int size, const char* defaultChar, BOOL* usedDefault);

// Whether the byte starts a two-byte character in the page.
COREKIT_API BOOL IsDBCSLeadByteEx(UINT codePage, BYTE byte);

inline constexpr std::size_t MAX_DEFAULTCHAR = 2;
inline constexpr std::size_t MAX_LEADBYTES = 12;

struct CPINFO {
    UINT MaxCharSize;                  // the most bytes of one character, those that change a state included
    BYTE DefaultChar[MAX_DEFAULTCHAR]; // what stands for a character that the page lacks
    BYTE LeadByte[MAX_LEADBYTES];      // first and last of each range of lead bytes, up to a pair of zeros
};

// 0 and last error 87 for an unknown page.
COREKIT_API BOOL GetCPInfo(UINT codePage, CPINFO* info);

inline constexpr DWORD CP_INSTALLED = 1; // the pages that the machine has converters for
inline constexpr DWORD CP_SUPPORTED = 2; // here the same

// Takes a page's number in decimal digits; 0 ends the enumeration.
using CODEPAGE_ENUMPROCA = BOOL (*)(char* codePage);

// Tells every page that the conversions know, by ascending number. 0 and last error 1004 for other flags, 87
// without a procedure.
COREKIT_API BOOL EnumSystemCodePagesA(CODEPAGE_ENUMPROCA proc, DWORD flags);
