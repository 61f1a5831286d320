// The header of a multi-view list box: tells its owner of clicks and of widths that the user gives. It is a
// member of the owner, which makes its window. User-interface thread.
#pragma once

#include "corekit/framework/ui/HeaderCtrl.h"
#include "corekit/windows/ui/MVLBOwner.h"

class COREKIT_API CMVLBHeader : public CHeaderCtrl {
    DECLARE_DYNAMIC(CMVLBHeader)
public:
    explicit CMVLBHeader(corekit::detail::MVLBOwner& owner)
        : m_owner(owner) {} // the owner outlives the header
    ~CMVLBHeader() override { DestroyWindow(); }

    // At the right end, with a centred title, which is copied. Width in pixels.
    void AppendColumn(int width, const char* title);
    // In pixels; the owner's OnColumnWidthChange is called.
    void SetColumnWidth(int column, int width);

protected:
    // A click sorts by the column of that index, the end of a drag sets its width; all else is the header's
    // own.
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    corekit::detail::MVLBOwner& m_owner;
};
