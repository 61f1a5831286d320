// The version record that a program or library carries in its file.
//
// A record holds two version numbers, a language with its code page, and texts by name. It is found through
// the file's program headers and checked before anything in it is believed; docs/formats/version-record.md
// tells the bytes, and corekit_version_record() in CMake puts one into a target.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

struct VS_FIXEDFILEINFO {
    DWORD dwSignature; // 0xFEEF04BD
    DWORD dwStrucVersion;
    DWORD dwFileVersionMS;
    DWORD dwFileVersionLS;
    DWORD dwProductVersionMS;
    DWORD dwProductVersionLS;
    DWORD dwFileFlagsMask;
    DWORD dwFileFlags;
    DWORD dwFileOS;
    DWORD dwFileType;
    DWORD dwFileSubtype;
    DWORD dwFileDateMS;
    DWORD dwFileDateLS;
};
static_assert(sizeof(VS_FIXEDFILEINFO) == 52);

inline constexpr DWORD ERROR_RESOURCE_DATA_NOT_FOUND = 1812;

// How many bytes the block of this file takes; 0 with error 1812 for a file without a sound record, or with
// the error of opening it. *handle, if asked for, becomes 0.
COREKIT_API DWORD GetFileVersionInfoSizeA(const char* path, DWORD* handle);
// Fills `size` bytes with the block, aligned as malloc aligns. 0 if they are too few. handle is not used.
COREKIT_API BOOL GetFileVersionInfoA(const char* path, DWORD handle, DWORD size, void* block);
// Points *value into a block that the call above filled: "\" is the VS_FIXEDFILEINFO,
// "\VarFileInfo\Translation" a DWORD with the language in its low and the code page in its high half,
// "\StringFileInfo\LLLLCCCC\Name" a text under language and code page in hexadecimal. *length counts bytes,
// for texts with the terminator. 0 if there is no such value.
COREKIT_API BOOL VerQueryValueA(const void* block, const char* name, void** value, UINT* length);
