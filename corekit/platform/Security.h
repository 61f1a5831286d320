// Who a process runs as, in the form of tokens and security identifiers.
//
// A token is the process's credentials as they were when it was opened. Of groups it holds one, the built-in
// Administrators: enabled when the process runs as the superuser, or when one of the groups that it has the
// rights of is the machine's "sudo", "wheel" or "admin"; there without being enabled when its user is merely
// listed in one of those, as before the next login. Any thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Handles.h"
#include "corekit/platform/Types.h"

struct SID_IDENTIFIER_AUTHORITY {
    BYTE Value[6];
};
// Of the built-in groups.
inline constexpr SID_IDENTIFIER_AUTHORITY SECURITY_NT_AUTHORITY = {{0, 0, 0, 0, 0, 5}};
// Together: the Administrators.
inline constexpr DWORD SECURITY_BUILTIN_DOMAIN_RID = 32, DOMAIN_ALIAS_RID_ADMINS = 544;

// As it is kept and sent; as many sub-authorities follow as it counts, at most 8.
struct SID {
    BYTE Revision;          // 1
    BYTE SubAuthorityCount; // how many follow
    SID_IDENTIFIER_AUTHORITY IdentifierAuthority;
    DWORD SubAuthority[1];
};
static_assert(sizeof(SID) == 12);
// From AllocateAndInitializeSid, or within the buffer of GetTokenInformation.
using PSID = SID*;

// Sub-authorities beyond `count` are not used. 0 with error 87 for more than 8. FreeSid gives it back.
COREKIT_API BOOL AllocateAndInitializeSid(const SID_IDENTIFIER_AUTHORITY* authority, BYTE count,
                                          DWORD subAuthority0, DWORD subAuthority1, DWORD subAuthority2,
                                          DWORD subAuthority3, DWORD subAuthority4, DWORD subAuthority5,
                                          DWORD subAuthority6, DWORD subAuthority7, PSID* sid);
COREKIT_API void FreeSid(PSID sid);
COREKIT_API BOOL EqualSid(const SID* a, const SID* b); // byte by byte

inline constexpr DWORD TOKEN_QUERY = 8; // the one access that is given
// Of this process alone, for TOKEN_QUERY; 0 with error 87 for anything else. Closed with CloseHandle.
COREKIT_API BOOL OpenProcessToken(HANDLE process, DWORD access, HANDLE* token);

inline constexpr DWORD SE_GROUP_ENABLED = 4; // the process has the group's rights
// A group, and what it does for the token.
struct SID_AND_ATTRIBUTES {
    PSID Sid;
    DWORD Attributes; // SE_GROUP_
};
struct TOKEN_GROUPS {
    DWORD GroupCount;
    SID_AND_ATTRIBUTES Groups[1]; // as many as it counts
};
enum TOKEN_INFORMATION_CLASS { TokenGroups = 2 }; // the one kind of information here
// Fills a TOKEN_GROUPS, with its identifiers behind it. *needed gets its size, also where it fails with error
// 122 because `size` is less.
COREKIT_API BOOL GetTokenInformation(HANDLE token, TOKEN_INFORMATION_CLASS what, void* information,
                                     DWORD size, DWORD* needed);
