#include "ListWindow.h"

#include "corekit/graphics/ui/SysColourMetricCache.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/ListViews.h"

namespace {

constexpr UINT listId = 100;
constexpr int nameColumn = 0, scriptColumn = 1;
constexpr int nameWidth = 380, scriptWidth = 200;

} // namespace

BEGIN_MESSAGE_MAP(ListWindow, CWnd)
ON_WM_SIZE()
ON_WM_SETFOCUS()
ON_WM_SYSCOLORCHANGE()
ON_WM_DESTROY()
END_MESSAGE_MAP()

void NameList::GetColumnText(StringW& out, long itemData, int column)
{
    const Name& name = m_names.at(static_cast<std::size_t>(itemData));
    if (column == nameColumn)
        out = name.text.c_str();
    else
        out = name.script;
}

void NameList::OnListKeyDown(UINT key, UINT, UINT)
{
    if (key == VK_DELETE && GetCurSel() >= 0) DeleteString(GetCurSel());
}

bool ListWindow::Open()
{
    if (!CreateEx(0, AfxRegisterWndClass(0), "Ten thousand names", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 80,
                  80, nameWidth + scriptWidth + 40, 520, nullptr, nullptr))
        return false;
    CRect client;
    GetClientRect(&client);
    if (!m_list.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS, client, this,
                       listId))
        return false;
    m_list.SetWindowText("Names"); // seen nowhere, but read out
    m_list.InsertColumn(nameColumn, "Name", LVCFMT_LEFT, nameWidth);
    m_list.InsertColumn(scriptColumn, "Script", LVCFMT_LEFT, scriptWidth);
    Fill();
    ShowWindow(SW_SHOW);
    m_list.SetFocus();
    return true;
}

// Each script goes through the four styles.
void ListWindow::Fill()
{
    m_list.SetRedraw(FALSE);
    for (std::size_t i = 0; i < m_names.size(); ++i)
        m_list.AddString(m_names[i].text.c_str(), static_cast<eULCItemStyle>(i / 7 % 4),
                         static_cast<long>(i));
    m_list.SetRedraw(TRUE);
    m_list.SetCurSel(0);
}

void ListWindow::OnSize(UINT how, int width, int height)
{
    CWnd::OnSize(how, width, height);
    if (m_list.GetSafeHwnd()) m_list.MoveWindow(0, 0, width, height);
}

void ListWindow::OnSetFocus(CWnd* before)
{
    CWnd::OnSetFocus(before);
    m_list.SetFocus();
}

// The rows follow the desktop, also to dark and back.
void ListWindow::OnSysColorChange()
{
    UpdateSysColourMetricCache();
    CWnd::OnSysColorChange();
    m_list.Invalidate();
}

void ListWindow::OnDestroy()
{
    CWnd::OnDestroy();
    PostQuitMessage(0);
}
