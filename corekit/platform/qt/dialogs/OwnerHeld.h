// The owner of something modal takes no input for as long as this lives. Posted messages are delivered
// meanwhile, even if the program has made no window of its own yet.
#pragma once

#include "corekit/platform/qt/windows/ApplicationFilter.h"
#include "corekit/platform/Windows.h"

namespace corekit::detail {

class OwnerHeld {
public:
    explicit OwnerHeld(HWND owner)
        : m_owner(GetAncestor(owner, GA_ROOT)), m_wasEnabled(m_owner && IsWindowEnabled(m_owner))
    {
        startWindows();
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
