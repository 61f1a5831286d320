// Whether the user is an administrator.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/Security.h"

// A security identifier and the question whether a token has it. One thread at a time.
class COREKIT_API CNTSecuritySID : public CObject {
    DECLARE_DYNAMIC(CNTSecuritySID)
public:
    CNTSecuritySID() = default;
    CNTSecuritySID(const CNTSecuritySID&) = delete;
    CNTSecuritySID& operator=(const CNTSecuritySID&) = delete;
    ~CNTSecuritySID() override { FreeSID(); }

    // A group of the machine's own by its two numbers. There is no identifier if this fails.
    void InitialiseBuiltinSID(unsigned long subAuthority0, unsigned long subAuthority1);
    // The built-in Administrators.
    void InitAdministratorsGroupSID();
    // Nonzero if the token has this group and it is enabled there; 0 also without an identifier.
    int TokenContainsThisSID(void* token);
    void FreeSID();

private:
    PSID m_sid = nullptr;
    int m_isSystems = 0; // the system has allocated it, and frees it
};

COREKIT_API int ntsec_IsCurrentUserAdministrator();
COREKIT_API int ntsec_IsTokenAdministrator(void* token);
