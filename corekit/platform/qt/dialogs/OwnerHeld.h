// The owner of something modal takes no input for as long as this lives, and the focus is where it was
// afterwards. Posted messages are delivered meanwhile, even if the program has made no window of its own yet.
#pragma once

#include "corekit/platform/Input.h"
#include "corekit/platform/qt/windows/ApplicationFilter.h"
#include "corekit/platform/Windows.h"

namespace corekit::detail {

class OwnerHeld {
public:
    explicit OwnerHeld(HWND owner)
        : m_owner(GetAncestor(owner, GA_ROOT)), m_focus(GetFocus()),
          m_wasEnabled(m_owner && IsWindowEnabled(m_owner))
    {
        startWindows();
        if (m_wasEnabled) EnableWindow(m_owner, FALSE);
    }
    OwnerHeld(const OwnerHeld&) = delete;
    OwnerHeld& operator=(const OwnerHeld&) = delete;
    ~OwnerHeld()
    {
        if (m_wasEnabled && IsWindow(m_owner)) EnableWindow(m_owner, TRUE);
        if (IsWindow(m_focus)) SetFocus(m_focus);
    }

private:
    HWND m_owner, m_focus;
    bool m_wasEnabled;
};

} // namespace corekit::detail
