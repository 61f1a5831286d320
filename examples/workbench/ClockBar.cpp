#include "ClockBar.h"

#include "Commands.h"

#include "corekit/foundation/TimeFunctions.h"
#include "corekit/windows/controls/ui/MenuHelpersEx.h"

#include <ctime>

BEGIN_MESSAGE_MAP(ClockBar, CAppBar)
ON_WM_TIMER()
ON_WM_CONTEXTMENU()
ON_COMMAND(clockHides, &ClockBar::OnHides)
ON_UPDATE_COMMAND_UI(clockHides, &ClockBar::OnUpdateHides)
ON_COMMAND(clockOnTop, &ClockBar::OnStaysOnTop)
ON_UPDATE_COMMAND_UI(clockOnTop, &ClockBar::OnUpdateStaysOnTop)
END_MESSAGE_MAP()

namespace {
constexpr UINT_PTR clockTimer = 7;
constexpr int textControl = 1001;
} // namespace

ClockBar::ClockBar() : CAppBar(clockDialog)
{
    m_dwFlags = appBarAllowLeftRight | appBarAllowTopBottom | appBarAllowFloat | appBarAllowAutohide |
                appBarAllowOnTop;
    m_increment = CSize(8, 8);
    SetState(
        APPBARSTATE{sizeof(APPBARSTATE), ABE_TOP, FALSE, FALSE, {140, 28, 140, 28}, {200, 200, 400, 228}});
}

bool ClockBar::Open(CWnd& owner)
{
    if (!Create(clockDialog, &owner)) return false;
    ShowTime();
    SetTimer(clockTimer, 1000);
    ShowWindow(SW_SHOWNA);
    SetState();
    return true;
}

void ClockBar::OnTimer(UINT_PTR id)
{
    if (id == clockTimer) ShowTime();
    CAppBar::OnTimer(id);
}

void ClockBar::OnContextMenu(CWnd*, CPoint point)
{
    CRightButtonMenu menu;
    menu.Add(clockHides, "&Hide on the edge");
    menu.Add(clockOnTop, "Stay on &top");
    menu.Show(*this, point);
}

void ClockBar::OnHides()
{
    m_state.fAutohide = !m_state.fAutohide;
    SetState();
}

void ClockBar::OnStaysOnTop()
{
    m_state.fAlwaysOnTop = !m_state.fAlwaysOnTop;
    SetState();
}

void ClockBar::ShowTime()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    CString text;
    time_FormatString(text, "%A, %H:%M:%S", local);
    SetDlgItemText(textControl, text);
}
