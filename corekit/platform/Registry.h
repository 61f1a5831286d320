// The registry: a tree of keys that hold named, typed values, kept on disk and shared by all processes.
//
// Names compare without regard to case and keep the case they were made with. A path separates its keys with
// `\`; it must not begin with one. Every call is atomic and, once it has returned, seen by every process;
// what a killed process had finished stays. Narrow text is in the active code page. All functions return a
// result code, 0 for success: 2 no such key or value, 5 no access, 6 no open key, 87 a bad argument, 170
// another process kept the registry busy, 234 the buffer is too small (the size is told), 259 no more items,
// 1015 the file is damaged and was left as it is, 1016 it cannot be read or written, 1018 the key
// has been deleted meanwhile. Any thread.
#pragma once

#include "corekit/platform/Errors.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

using HKEY = struct HKEY__*;
struct _SECURITY_ATTRIBUTES;

// Always open, whether or not anything is kept in them.
inline HKEY const HKEY_CURRENT_USER = reinterpret_cast<HKEY>(static_cast<LONG_PTR>(-0x7FFFFFFF));
inline HKEY const HKEY_LOCAL_MACHINE = reinterpret_cast<HKEY>(static_cast<LONG_PTR>(-0x7FFFFFFE));

// Types of values; the registry keeps bytes and type as they are given.
inline constexpr DWORD REG_NONE = 0;
inline constexpr DWORD REG_SZ = 1;        // text
inline constexpr DWORD REG_EXPAND_SZ = 2; // text with variables
inline constexpr DWORD REG_BINARY = 3;    // bytes
inline constexpr DWORD REG_DWORD = 4;     // 32 bits
inline constexpr DWORD REG_DWORD_BIG_ENDIAN = 5;
inline constexpr DWORD REG_LINK = 6;     // kept
inline constexpr DWORD REG_MULTI_SZ = 7; // texts, each with its terminator, and one more
inline constexpr DWORD REG_QWORD = 11;   // 64 bits

// What a handle may be used for.
inline constexpr DWORD KEY_QUERY_VALUE = 0x0001;
inline constexpr DWORD KEY_SET_VALUE = 0x0002;
inline constexpr DWORD KEY_CREATE_SUB_KEY = 0x0004;
inline constexpr DWORD KEY_ENUMERATE_SUB_KEYS = 0x0008;
inline constexpr DWORD KEY_READ = 0x20019;
inline constexpr DWORD KEY_WRITE = 0x20006;
inline constexpr DWORD KEY_ALL_ACCESS = 0xF003F;

inline constexpr DWORD REG_OPTION_NON_VOLATILE = 0;
inline constexpr DWORD REG_OPTION_VOLATILE = 1; // the key goes when the machine restarts
inline constexpr DWORD REG_CREATED_NEW_KEY = 1; // RegCreateKeyExA has made it
inline constexpr DWORD REG_OPENED_EXISTING_KEY = 2;

inline constexpr DWORD ERROR_BAD_NETPATH = 53; // another machine
inline constexpr DWORD ERROR_BAD_PATHNAME = 161;
inline constexpr DWORD ERROR_MORE_DATA = 234; // the buffer is too small
inline constexpr DWORD ERROR_REGISTRY_CORRUPT = 1015;
inline constexpr DWORD ERROR_REGISTRY_IO_FAILED = 1016;
inline constexpr DWORD ERROR_KEY_DELETED = 1018;

// Opens the key at the path below `key`, or another handle on `key` itself for a null or empty path. `access`
// is what the handle may be used for; asking for writing without the right to write the registry's file
// fails with 5. The caller closes *result, which is set on success only.
COREKIT_API LONG RegOpenKeyExA(HKEY key, const char* subKey, DWORD options, DWORD access, HKEY* result);
// Opens as above or makes the key and all missing ones above it. A name has at most 255 bytes, a path at most
// 512 keys. `keyClass` may be null and belongs to a new key; security is not used; `disposition` may be null.
COREKIT_API LONG RegCreateKeyExA(HKEY key, const char* subKey, DWORD reserved, const char* keyClass,
                                 DWORD options, DWORD access, const _SECURITY_ATTRIBUTES* security,
                                 HKEY* result, DWORD* disposition);
// Not needed for the two hives.
COREKIT_API LONG RegCloseKey(HKEY key);
// A hive of this machine: the name is null, "." or this host's, with any number of `\` ahead of it. There is
// no way to another machine's registry: 53.
COREKIT_API LONG RegConnectRegistryA(const char* machine, HKEY hive, HKEY* result);

// Copies the value out. type, data and size may each be null, but data needs size, which is the buffer's size
// on entry and the value's on return. A null name is the empty one, the key's default value.
COREKIT_API LONG RegQueryValueExA(HKEY key, const char* name, DWORD* reserved, DWORD* type, BYTE* data,
                                  DWORD* size);
// Sets or replaces. Text types are text with its terminator in the size.
COREKIT_API LONG RegSetValueExA(HKEY key, const char* name, DWORD reserved, DWORD type, const BYTE* data,
                                DWORD size);
COREKIT_API LONG RegDeleteValueA(HKEY key, const char* name);
// Deletes a key with its values; one that has keys below it is refused with 5.
COREKIT_API LONG RegDeleteKeyA(HKEY key, const char* subKey);

// The index-th key in the order of the folded names. Sizes count characters: with the terminator on entry,
// without it on return. keyClass with its size, and time (of the last change of the key), may be null.
COREKIT_API LONG RegEnumKeyExA(HKEY key, DWORD index, char* name, DWORD* nameSize, DWORD* reserved,
                               char* keyClass, DWORD* classSize, FILETIME* time);
// The index-th value in the order in which they were first set. type, data and size as for a query.
COREKIT_API LONG RegEnumValueA(HKEY key, DWORD index, char* name, DWORD* nameSize, DWORD* reserved,
                               DWORD* type, BYTE* data, DWORD* size);
