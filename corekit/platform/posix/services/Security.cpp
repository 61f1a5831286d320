#include "corekit/platform/Security.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/handles/HandleTable.h"
#include "corekit/platform/posix/services/Administrators.h"

#include <cstdlib>
#include <cstring>

namespace {
using namespace corekit::detail;

constexpr BYTE mostSubAuthorities = 8;

std::size_t sizeOf(BYTE subAuthorities)
{
    return offsetof(SID, SubAuthority) + subAuthorities * sizeof(DWORD);
}

class Token final : public Object {
public:
    static constexpr ObjectKind objectKind = ObjectKind::token;
    Token() : Object(objectKind), state(administratorState()) {}

    const Administrator state;
};

// The built-in Administrators, and whether they count.
struct OneGroup {
    TOKEN_GROUPS groups;
    struct {
        SID sid;
        DWORD alias;
    } administrators;
};

OneGroup groupOf(Administrator state)
{
    OneGroup one{};
    one.groups.GroupCount = 1;
    one.groups.Groups[0].Attributes = state == Administrator::effective ? SE_GROUP_ENABLED : 0;
    one.administrators.sid = {1, 2, SECURITY_NT_AUTHORITY, {SECURITY_BUILTIN_DOMAIN_RID}};
    one.administrators.alias = DOMAIN_ALIAS_RID_ADMINS;
    return one;
}

} // namespace

BOOL AllocateAndInitializeSid(const SID_IDENTIFIER_AUTHORITY* authority, BYTE count, DWORD subAuthority0,
                              DWORD subAuthority1, DWORD subAuthority2, DWORD subAuthority3,
                              DWORD subAuthority4, DWORD subAuthority5, DWORD subAuthority6,
                              DWORD subAuthority7, PSID* sid)
{
    if (!authority || !sid || count > mostSubAuthorities) return fail(ERROR_INVALID_PARAMETER, FALSE);
    const DWORD all[] = {subAuthority0, subAuthority1, subAuthority2, subAuthority3,
                         subAuthority4, subAuthority5, subAuthority6, subAuthority7};
    auto* const made = static_cast<PSID>(std::calloc(1, sizeOf(mostSubAuthorities)));
    if (!made) return fail(ERROR_NOT_ENOUGH_MEMORY, FALSE);
    made->Revision = 1;
    made->SubAuthorityCount = count;
    made->IdentifierAuthority = *authority;
    std::memcpy(reinterpret_cast<BYTE*>(made) + offsetof(SID, SubAuthority), all, count * sizeof(DWORD));
    *sid = made;
    return TRUE;
}

void FreeSid(PSID sid) { std::free(sid); }

BOOL EqualSid(const SID* a, const SID* b)
{
    return a->SubAuthorityCount == b->SubAuthorityCount && a->SubAuthorityCount <= mostSubAuthorities &&
           std::memcmp(a, b, sizeOf(a->SubAuthorityCount)) == 0;
}

BOOL OpenProcessToken(HANDLE process, DWORD access, HANDLE* token)
{
    if (process != GetCurrentProcess() || access != TOKEN_QUERY || !token)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    *token = openHandle(std::make_unique<Token>());
    return *token != nullptr;
}

BOOL GetTokenInformation(HANDLE handle, TOKEN_INFORMATION_CLASS what, void* information, DWORD size,
                         DWORD* needed)
{
    const HandleUser<Token> token(handle);
    if (!token) return fail(ERROR_INVALID_HANDLE, FALSE);
    if (what != TokenGroups || !needed) return fail(ERROR_INVALID_PARAMETER, FALSE);
    const bool isThere = token->state != Administrator::no;
    *needed = isThere ? sizeof(OneGroup) : sizeof(TOKEN_GROUPS);
    if (!information || size < *needed) return fail(ERROR_INSUFFICIENT_BUFFER, FALSE);
    OneGroup one = groupOf(token->state);
    if (!isThere) one.groups.GroupCount = 0;
    one.groups.Groups[0].Sid =
        isThere ? reinterpret_cast<PSID>(static_cast<BYTE*>(information) + offsetof(OneGroup, administrators))
                : nullptr;
    std::memcpy(information, &one, *needed);
    return TRUE;
}
