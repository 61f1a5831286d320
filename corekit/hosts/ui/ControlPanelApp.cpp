#include "corekit/hosts/ui/ControlPanelApp.h"

IMPLEMENT_DYNAMIC(CControlPanelItem, CObject)
IMPLEMENT_DYNAMIC(CControlPanelApp, CWinApp)

BOOL CControlPanelApp::InitInstance()
{
    OnLoad();
    return TRUE;
}

int CControlPanelApp::ExitInstance() { return CWinApp::ExitInstance(); }

CControlPanelItem* CControlPanelApp::ItemAt(long index) const
{
    return index >= 0 && static_cast<std::size_t>(index) < m_items.size()
               ? m_items[static_cast<std::size_t>(index)].get()
               : nullptr;
}

long CControlPanelApp::CplApplet(HWND parent, unsigned int message, long lParam1, long lParam2)
{
    switch (message) {
    case CPL_INIT:
        if (OnAppletInit()) return 1;
        m_items.clear();
        OnAppletExit();
        return 0;
    case CPL_GETCOUNT:
        return static_cast<long>(m_items.size());
    case CPL_INQUIRE:
        if (CControlPanelItem* const item = ItemAt(lParam1); item && lParam2)
            *reinterpret_cast<CPLINFO*>(lParam2) = {item->GetIconId(), item->GetNameId(), item->GetInfoId(),
                                                    lParam1};
        return 0;
    case CPL_DBLCLK:
        if (CControlPanelItem* const item = ItemAt(lParam1)) item->OnDoubleClick(CWnd::FromHandle(parent));
        return 0;
    case CPL_EXIT:
        m_items.clear();
        OnAppletExit();
        return 0;
    default:
        return 0;
    }
}
