#include "corekit/windows/controls/ui/TabBar.h"

#include "corekit/framework/ui/WindowDC.h"
#include "corekit/platform/Cursors.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/SystemColours.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CTabBar, CWnd)

BEGIN_MESSAGE_MAP(CTabBar, CWnd)
ON_WM_PAINT()
ON_WM_LBUTTONDOWN()
ON_WM_GETDLGCODE()
ON_WM_KEYDOWN()
END_MESSAGE_MAP()

namespace {
constexpr int margin = 8;
constexpr UINT wantsArrows = 1;
} // namespace

BOOL CTabBar::Create(CWnd* parent, const CRect& rect, UINT id, DWORD style)
{
    const char* const name = AfxRegisterWndClass(CS_HREDRAW, LoadCursorA(nullptr, IDC_ARROW),
                                                 reinterpret_cast<HBRUSH>(std::size_t{COLOR_BTNFACE + 1}));
    return CWnd::Create(name, "", style, rect, parent, id);
}

int CTabBar::WidthOf(const StringW& title)
{
    CClientDC dc(this);
    dc.SelectStockObject(DEFAULT_GUI_FONT);
    RECT measured{};
    ::DrawTextW(dc, title, title.GetLength(), &measured, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
    return static_cast<int>(measured.right) + 2 * margin;
}

int CTabBar::InsertTab(int index, const WCHAR* title)
{
    const int at = std::clamp(index, 0, GetTabCount());
    Tab tab{StringW(title), 0};
    tab.width = WidthOf(tab.title);
    m_tabs.insert(m_tabs.begin() + at, tab);
    if (m_selected < 0 || at <= m_selected) m_selected = m_selected < 0 ? 0 : m_selected + 1;
    Invalidate();
    return at;
}

void CTabBar::DeleteTab(int index)
{
    if (index < 0 || index >= GetTabCount()) return;
    m_tabs.erase(m_tabs.begin() + index);
    if (index < m_selected || m_selected == GetTabCount()) --m_selected;
    Invalidate();
}

void CTabBar::SetSelected(int index)
{
    if (index < 0 || index >= GetTabCount()) return;
    m_selected = index;
    Invalidate();
}

StringW CTabBar::GetTitle(int index) const
{
    return index < 0 || index >= GetTabCount() ? StringW() : m_tabs[static_cast<std::size_t>(index)].title;
}

CRect CTabBar::GetTabRect(int index) const
{
    CRect rect;
    GetClientRect(&rect);
    rect.right = rect.left;
    for (int i = 0; i <= index && i < GetTabCount(); ++i) {
        rect.left = rect.right;
        rect.right += m_tabs[static_cast<std::size_t>(i)].width;
    }
    return rect;
}

int CTabBar::TabAt(CPoint client) const
{
    for (int i = 0; i < GetTabCount(); ++i)
        if (GetTabRect(i).PtInRect(client)) return i;
    return -1;
}

void CTabBar::OnPaint()
{
    CPaintDC dc(this);
    dc.SelectStockObject(DEFAULT_GUI_FONT);
    dc.SetBkMode(TRANSPARENT);
    for (int i = 0; i < GetTabCount(); ++i) {
        CRect rect = GetTabRect(i);
        const bool isSelected = i == m_selected;
        if (isSelected) dc.FillSolidRect(&rect, GetSysColor(COLOR_WINDOW));
        dc.SetBkMode(TRANSPARENT);
        CRect edge = rect;
        dc.DrawEdge(&edge, isSelected ? BDR_SUNKENOUTER : BDR_RAISEDINNER, BF_RECT);
        dc.SetTextColor(GetSysColor(isSelected ? COLOR_WINDOWTEXT : COLOR_BTNTEXT));
        const StringW& title = m_tabs[static_cast<std::size_t>(i)].title;
        ::DrawTextW(dc, title, title.GetLength(), &rect,
                    DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    }
}

void CTabBar::Choose(int index)
{
    if (index < 0 || index >= GetTabCount() || index == m_selected) return;
    SetSelected(index);
    if (const CWnd* const parent = GetParent())
        parent->SendMessage(WM_COMMAND, static_cast<WPARAM>(static_cast<WORD>(GetDlgCtrlID())),
                            reinterpret_cast<LPARAM>(m_hWnd));
}

void CTabBar::OnLButtonDown(UINT, CPoint point)
{
    SetFocus();
    Choose(TabAt(point));
}

UINT CTabBar::OnGetDlgCode() { return wantsArrows; }

void CTabBar::OnKeyDown(UINT key, UINT repeat, UINT flags)
{
    if (key == VK_LEFT || key == VK_RIGHT)
        Choose(m_selected + (key == VK_RIGHT ? 1 : -1));
    else
        CWnd::OnKeyDown(key, repeat, flags);
}
