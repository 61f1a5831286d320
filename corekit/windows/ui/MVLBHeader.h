// The header of a multi-view list box: tells its owner of clicks and of widths that the user gives.
#pragma once

#include "corekit/framework/ui/HeaderCtrl.h"
#include "corekit/windows/ui/MVLBOwner.h"

class COREKIT_API CMVLBHeader : public CHeaderCtrl {
    DECLARE_DYNAMIC(CMVLBHeader)
public:
    explicit CMVLBHeader(corekit::detail::MVLBOwner& owner) : m_owner(owner) {}
    ~CMVLBHeader() override { DestroyWindow(); }

    void AppendColumn(int width, const char* title);
    void SetColumnWidth(int column, int width);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    corekit::detail::MVLBOwner& m_owner;
};
