// Two stacks of panes between which tabs can be dragged.
#pragma once

#include "corekit/windows/ui/TabbedOverlayWnd.h"

#include <functional>

class PaneStack : public CTabbedOverlayWnd {
public:
    void SetPartner(PaneStack& other) { m_partner = &other; }
    // Called with the pane that has become active, null when none is left.
    std::function<void(CWnd*)> chosen;

protected:
    void OnChangeActivePane(CWnd* pane, int) override;
    DWORD GetTabDragEffect(CWnd* pane, CPoint screenPoint, CWnd*& target) override;
    void DropTab(DWORD effect, CWnd* pane, CWnd* target, CPoint screenPoint) override;

private:
    PaneStack* m_partner = nullptr;
};
