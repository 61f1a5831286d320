// The owner of something modal takes no input for as long as this lives.
#pragma once

#include "corekit/platform/Windows.h"

namespace corekit::detail {

class OwnerHeld {
public:
    explicit OwnerHeld(HWND owner)
        : m_owner(GetAncestor(owner, GA_ROOT)), m_wasEnabled(m_owner && IsWindowEnabled(m_owner))
    {
        if (m_wasEnabled) EnableWindow(m_owner, FALSE);
    }
    OwnerHeld(const OwnerHeld&) = delete;
    OwnerHeld& operator=(const OwnerHeld&) = delete;
    ~OwnerHeld()
    {
        if (m_wasEnabled && IsWindow(m_owner)) EnableWindow(m_owner, TRUE);
    }

private:
    HWND m_owner;
    bool m_wasEnabled;
};

} // namespace corekit::detail
