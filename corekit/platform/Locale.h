// The language of the process and what is known of languages.
//
// A locale identifier is a language number: the language in the low ten bits, its variety above.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

inline constexpr DWORD LOCALE_FONTSIGNATURE = 0x58;
inline constexpr DWORD LOCALE_SENGLANGUAGE = 0x1001;
inline constexpr DWORD LOCALE_IDEFAULTANSICODEPAGE = 0x1004;

// What LOCALE_FONTSIGNATURE gives: the Unicode ranges a font needs for the language, and the code pages it
// should have, by bit.
struct LOCALESIGNATURE {
    DWORD lsUsb[4];
    DWORD lsCsbDefault[2];
    DWORD lsCsbSupported[2];
};
static_assert(sizeof(LOCALESIGNATURE) == 32);

// By the process's locale (the first of LC_ALL, LC_CTYPE and LANG that is set), read once; US English for a
// language that has no number.
COREKIT_API LCID GetSystemDefaultLCID();

// A fact about a locale: for LOCALE_FONTSIGNATURE 32 bytes, for the others text with a terminator. A variety
// that is not known has the facts of its language; locale 0 and the defaults 0x400 and 0x800 are the
// process's own.
// Returns the bytes stored, with size 0 the bytes needed; 0 with last error 122 when size is too small, 87
// for an unknown locale or another type.
COREKIT_API int GetLocaleInfoA(LCID locale, DWORD type, char* result, int size);
