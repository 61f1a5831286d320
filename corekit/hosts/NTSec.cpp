#include "corekit/hosts/NTSec.h"

#include "corekit/foundation/SafeAlloc.h"
#include "corekit/platform/Errors.h"

#include <memory>
#include <utility>

IMPLEMENT_DYNAMIC(CNTSecuritySID, CObject)

void CNTSecuritySID::InitialiseBuiltinSID(unsigned long subAuthority0, unsigned long subAuthority1)
{
    FreeSID();
    m_isSystems = AllocateAndInitializeSid(&SECURITY_NT_AUTHORITY, 2, static_cast<DWORD>(subAuthority0),
                                           static_cast<DWORD>(subAuthority1), 0, 0, 0, 0, 0, 0, &m_sid);
}

void CNTSecuritySID::InitAdministratorsGroupSID()
{
    InitialiseBuiltinSID(SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS);
}

int CNTSecuritySID::TokenContainsThisSID(void* token)
{
    if (!m_sid) return 0;
    DWORD size = 0;
    if (!GetTokenInformation(token, TokenGroups, nullptr, 0, &size) &&
        GetLastError() != ERROR_INSUFFICIENT_BUFFER)
        return 0;
    const std::unique_ptr<void, void (*)(void*)> memory(
        __safe_malloc(static_cast<int>(size), __FILE__, __LINE__), [](void* block) { safe_free(block); });
    if (!GetTokenInformation(token, TokenGroups, memory.get(), size, &size)) return 0;
    const auto* const groups = static_cast<const TOKEN_GROUPS*>(memory.get());
    for (DWORD i = 0; i < groups->GroupCount; ++i) {
        const SID_AND_ATTRIBUTES& group = groups->Groups[i];
        if ((group.Attributes & SE_GROUP_ENABLED) != 0 && EqualSid(group.Sid, m_sid)) return 1;
    }
    return 0;
}

void CNTSecuritySID::FreeSID()
{
    PSID const sid = std::exchange(m_sid, nullptr);
    if (!sid) return;
    if (m_isSystems)
        FreeSid(sid);
    else
        safe_free(sid);
}

int ntsec_IsCurrentUserAdministrator()
{
    HANDLE token = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token)) return 0;
    const int is = ntsec_IsTokenAdministrator(token);
    CloseHandle(token);
    return is;
}

int ntsec_IsTokenAdministrator(void* token)
{
    CNTSecuritySID administrators;
    administrators.InitAdministratorsGroupSID();
    return administrators.TokenContainsThisSID(token);
}
