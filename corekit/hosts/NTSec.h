// Whether the user is an administrator.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/Security.h"

// A security identifier and the question whether a token has it. One thread at a time.
class COREKIT_API CNTSecuritySID : public CObject {
    DECLARE_DYNAMIC(CNTSecuritySID)
public:
    CNTSecuritySID() = default; // no identifier
    CNTSecuritySID(const CNTSecuritySID&) = delete;
    CNTSecuritySID& operator=(const CNTSecuritySID&) = delete;
    ~CNTSecuritySID() override { FreeSID(); }

    // A group of the machine's own by its two numbers, which are relative identifiers: the domain, then the
    // alias. There is no identifier if this fails. One that was held is freed first.
    void InitialiseBuiltinSID(unsigned long subAuthority0, unsigned long subAuthority1);
    // The built-in Administrators.
    void InitAdministratorsGroupSID();
    // Nonzero if the token has this group and it is enabled there; 0 also without an identifier and for a
    // handle that is no token. The token stays the caller's.
    int TokenContainsThisSID(void* token);
    // Frees the identifier, if there is one.
    void FreeSID();

private:
    PSID m_sid = nullptr;
    int m_isSystems = 0; // the system has allocated it, and frees it
};

// Nonzero if the user of this process is one of the Administrators, and the same for the user of a token. 0
// also where the system does not say.
COREKIT_API int ntsec_IsCurrentUserAdministrator();
COREKIT_API int ntsec_IsTokenAdministrator(void* token);
