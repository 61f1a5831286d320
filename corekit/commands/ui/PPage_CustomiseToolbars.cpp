#include "corekit/commands/ui/PPage_CustomiseToolbars.h"

#include "corekit/commands/ui/CommandCategories.h"
#include "corekit/commands/ui/DLG_NewToolbar.h"
#include "corekit/commands/ui/IntelliToolBar.h"
#include "corekit/framework/ui/DataExchange.h"
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/resources/dialogs/CustomisePages.h"
#include "corekit/resources/Messages.h"

#include <algorithm>

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(PPage_CustomiseToolbars, CAXPropertyPage)

namespace {

constexpr int barsControl = 1033, largeControl = 1034, newControl = 1035, editControl = 1036,
              deleteControl = 1037, resetControl = 1038, commandsControl = 1049;
constexpr int mostTries = 50;

} // namespace

BEGIN_MESSAGE_MAP(PPage_CustomiseToolbars, CAXPropertyPage)
ON_LBN_SELCHANGE(barsControl, &PPage_CustomiseToolbars::OnSelectBar)
ON_CONTROL(CLBN_CHKCHANGE, barsControl, &PPage_CustomiseToolbars::OnCheckBar)
ON_BN_CLICKED(newControl, &PPage_CustomiseToolbars::OnNew)
ON_BN_CLICKED(editControl, &PPage_CustomiseToolbars::OnEdit)
ON_BN_CLICKED(deleteControl, &PPage_CustomiseToolbars::OnDelete)
ON_BN_CLICKED(resetControl, &PPage_CustomiseToolbars::OnResetAll)
ON_BN_CLICKED(largeControl, &PPage_CustomiseToolbars::OnLargeButtons)
END_MESSAGE_MAP()

PPage_CustomiseToolbars::PPage_CustomiseToolbars(CFrameWnd* frame, CCommandList& commands)
    : CAXPropertyPage(dialogs::customiseToolbars.id), m_frame(frame), m_list(commands)
{
}

void PPage_CustomiseToolbars::DoDataExchange(CDataExchange* exchange)
{
    CAXPropertyPage::DoDataExchange(exchange);
    DDX_Control(exchange, barsControl, m_bars);
    DDX_Check(exchange, largeControl, m_largeButtons);
}

void PPage_CustomiseToolbars::LoadPage()
{
    m_largeButtons = CIntelliToolBar::UsingLargeButtons();
    m_bars.SetCheckStyle(BS_AUTOCHECKBOX);
    ShowBars(0);
}

CIntelliToolBar* PPage_CustomiseToolbars::Selected() const
{
    return m_list.GetToolbarByIndex(m_bars.GetCurSel());
}

void PPage_CustomiseToolbars::ShowBars(int selected)
{
    m_bars.ResetContent();
    for (int i = 0; i < m_list.GetToolbarCount(); ++i) {
        const CIntelliToolBar* const bar = m_list.GetToolbarByIndex(i);
        m_bars.AddString(bar->GetName());
        m_bars.SetCheck(i, bar->IsVisible() ? BST_CHECKED : BST_UNCHECKED);
    }
    m_bars.SetCurSel(std::min(selected, m_list.GetToolbarCount() - 1));
    ShowCommands();
}

void PPage_CustomiseToolbars::ShowCommands()
{
    SendDlgItemMessage(commandsControl, LB_RESETCONTENT);
    const CIntelliToolBar* const bar = Selected();
    for (int i = 0; bar && i < bar->GetButtonCount(); ++i) {
        CCmdItem item;
        if (m_list.GetItemByCommand(bar->GetItemID(i), item))
            addRow(*this, commandsControl, item.m_strName, item.m_nCommand);
    }
    UpdateControls();
}

void PPage_CustomiseToolbars::UpdateControls()
{
    for (const int id : {editControl, deleteControl})
        if (CWnd* const control = GetDlgItem(id)) control->EnableWindow(Selected() != nullptr);
    if (CWnd* const reset = GetDlgItem(resetControl))
        reset->EnableWindow(m_list.GetDefaultToolbarCount() > 0);
}

void PPage_CustomiseToolbars::OnSelectBar() { ShowCommands(); }

void PPage_CustomiseToolbars::OnCheckBar()
{
    for (int i = 0; i < m_bars.GetCount(); ++i) {
        CIntelliToolBar* const bar = m_list.GetToolbarByIndex(i);
        const bool isChecked = m_bars.GetCheck(i) == BST_CHECKED;
        if (bar && bar->IsVisible() != isChecked) m_frame->ShowControlBar(bar, isChecked, FALSE);
    }
    SetModified(1);
}

// ---- Making and changing

UINT PPage_CustomiseToolbars::FreeBarId() const
{
    UINT id = 0;
    CString name;
    CUIntArray buttons;
    if (!m_list.GetDefaultToolbarByIndex(0, id, name, buttons)) return 0;
    for (int tries = 0; tries < mostTries; ++tries, ++id)
        if (!m_frame->GetControlBar(id)) return id;
    return 0;
}

void PPage_CustomiseToolbars::OnNew()
{
    DLG_NewToolbar dialog(m_list, message::newToolbarTitle, nullptr, this);
    if (dialog.DoModal() != IDOK) return;
    const UINT id = FreeBarId();
    if (!id) return;
    CUIntArray buttons;
    for (UINT command : dialog.m_buttons) buttons.Add(command);
    auto* const bar = new CIntelliToolBar;
    if (!bar->CreateFromData(m_frame, id, buttons, dialog.m_name)) {
        bar->m_hWnd ? static_cast<void>(bar->DestroyWindow()) : delete bar;
        return;
    }
    m_list.AddToolbar(bar);
    m_frame->DockControlBar(bar);
    m_frame->RecalcLayout();
    SetModified(1);
    ShowBars(m_list.GetToolbarCount() - 1);
}

void PPage_CustomiseToolbars::OnEdit()
{
    CIntelliToolBar* const bar = Selected();
    if (!bar) return;
    const int row = m_bars.GetCurSel();
    DLG_NewToolbar dialog(m_list, message::editToolbarTitle, bar, this);
    if (dialog.DoModal() != IDOK || Selected() != bar) return;
    bar->SetName(dialog.m_name);
    bar->DeleteAllButtons();
    for (const UINT command : dialog.m_buttons) bar->AppendButton(command);
    m_frame->RecalcLayout();
    SetModified(1);
    ShowBars(row);
}

void PPage_CustomiseToolbars::OnDelete()
{
    CIntelliToolBar* const bar = Selected();
    if (!bar) return;
    const int row = m_bars.GetCurSel();
    bar->DestroyWindow(); // leaves the command list
    m_frame->RecalcLayout();
    SetModified(1);
    ShowBars(row);
}

void PPage_CustomiseToolbars::OnResetAll()
{
    m_list.DestroyAllToolbars();
    CIntelliToolBar* before = nullptr;
    for (int i = 0; i < m_list.GetDefaultToolbarCount(); ++i) {
        UINT id = 0;
        CString name;
        CUIntArray buttons;
        m_list.GetDefaultToolbarByIndex(i, id, name, buttons);
        auto* const bar = new CIntelliToolBar;
        if (!bar->CreateFromData(m_frame, id, buttons, name)) {
            bar->m_hWnd ? static_cast<void>(bar->DestroyWindow()) : delete bar;
            continue;
        }
        m_list.AddToolbar(bar);
        CRect beside, client;
        if (before) {
            m_frame->RecalcLayout();
            before->GetWindowRect(&beside);
            m_frame->GetClientRect(&client);
            m_frame->ClientToScreen(&client);
            beside.left = beside.right + 1;
            beside.right = std::max(client.right, beside.left);
        }
        m_frame->DockControlBar(bar, AFX_IDW_DOCKBAR_TOP, before ? &beside : nullptr);
        before = bar;
    }
    m_frame->RecalcLayout();
    SetModified(1);
    ShowBars(0);
}

void PPage_CustomiseToolbars::OnLargeButtons()
{
    UpdateData(TRUE);
    CIntelliToolBar::EnableLargeButtons(m_largeButtons);
    for (int i = 0; i < m_list.GetToolbarCount(); ++i) m_list.GetToolbarByIndex(i)->ToggleButtonSize();
    m_frame->RecalcLayout();
    SetModified(1);
}
