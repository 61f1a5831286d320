#include "corekit/commands/ui/DLG_NewToolbar.h"

#include "corekit/commands/ui/CommandCategories.h"
#include "corekit/commands/ui/IntelliToolBar.h"
#include "corekit/framework/ui/DataExchange.h"
#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/ListBoxes.h"
#include "corekit/resources/dialogs/CustomisePages.h"
#include "corekit/resources/Messages.h"

#include <algorithm>
#include <utility>

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(DLG_NewToolbar, CDialog)

namespace {
constexpr int nameControl = 1038, locationControl = 1039, commandsControl = 1040, categoryControl = 1041,
              showAllControl = 1045, buttonsControl = 1046, addControl = 1047, removeControl = 1048,
              upControl = 1050, downControl = 1051;
constexpr char separator[] = "--------";
} // namespace

BEGIN_MESSAGE_MAP(DLG_NewToolbar, CDialog)
ON_CBN_SELCHANGE(locationControl, &DLG_NewToolbar::OnSelectLocation)
ON_CBN_SELCHANGE(categoryControl, &DLG_NewToolbar::OnSelectCategory)
ON_LBN_SELCHANGE(commandsControl, &DLG_NewToolbar::OnSelectionChanged)
ON_LBN_DBLCLK(commandsControl, &DLG_NewToolbar::OnAdd)
ON_LBN_SELCHANGE(buttonsControl, &DLG_NewToolbar::OnSelectionChanged)
ON_BN_CLICKED(showAllControl, &DLG_NewToolbar::OnShowAll)
ON_BN_CLICKED(addControl, &DLG_NewToolbar::OnAdd)
ON_BN_CLICKED(removeControl, &DLG_NewToolbar::OnRemove)
ON_BN_CLICKED(upControl, &DLG_NewToolbar::OnMoveUp)
ON_BN_CLICKED(downControl, &DLG_NewToolbar::OnMoveDown)
END_MESSAGE_MAP()

DLG_NewToolbar::DLG_NewToolbar(CCommandList& commands, UINT titleId, const CIntelliToolBar* edited,
                               CWnd* parent)
    : CDialog(dialogs::newToolbar.id, parent), m_list(commands), m_titleId(titleId), m_edited(edited)
{
    if (!edited) return;
    m_name = edited->GetName();
    for (int i = 0; i < edited->GetButtonCount(); ++i) m_buttons.push_back(edited->GetItemID(i));
}

BOOL DLG_NewToolbar::OnInitDialog()
{
    CString title;
    title.LoadString(m_titleId);
    SetWindowText(title);
    for (const CCommandList::KeyTable& table : m_list.m_tables)
        SendDlgItemMessage(locationControl, CB_ADDSTRING, 0,
                           reinterpret_cast<LPARAM>(static_cast<const char*>(table.name)));
    SendDlgItemMessage(locationControl, CB_SETCURSEL, 0);
    OnSelectLocation();
    ShowButtons(-1);
    return CDialog::OnInitDialog();
}

void DLG_NewToolbar::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    DDX_Text(exchange, nameControl, m_name);
}

void DLG_NewToolbar::OnOK()
{
    CString name;
    GetDlgItemText(nameControl, name);
    for (int i = 0; i < m_list.GetToolbarCount(); ++i) {
        const CIntelliToolBar* const bar = m_list.GetToolbarByIndex(i);
        if (bar == m_edited || bar->GetName() != name) continue;
        StockMessageBox(this, message::toolbarNameTaken, MB_OK | MB_ICONEXCLAMATION);
        return GotoDlgCtrl(GetDlgItem(nameControl));
    }
    CDialog::OnOK();
}

// ---- What is offered

void DLG_NewToolbar::OnSelectLocation()
{
    CCommandList::AccelArray keys;
    m_list.GetDefaultAccelTableByIndex(static_cast<int>(SendDlgItemMessage(locationControl, CB_GETCURSEL)),
                                       keys);
    const bool all = ::IsDlgButtonChecked(m_hWnd, showAllControl) == BST_CHECKED;
    m_offered.clear();
    for (const CCmdItem& item : m_list.m_commands) {
        bool isHere = all;
        for (int i = 0; i < keys.GetSize() && !isHere; ++i) isHere = keys[i].cmd == item.m_nCommand;
        if (isHere && item.m_nSmallBitmap && item.m_nLargeBitmap) m_offered.push_back(item);
    }
    fillCategories(*this, categoryControl, m_offered);
    OnSelectCategory();
}

void DLG_NewToolbar::OnSelectCategory()
{
    std::vector<CCmdItem> left;
    std::ranges::copy_if(m_offered, std::back_inserter(left), [this](const CCmdItem& item) {
        return std::ranges::find(m_buttons, item.m_nCommand) == m_buttons.end();
    });
    fillCommands(*this, commandsControl, left, selectedCategory(*this, categoryControl));
    addRow(*this, commandsControl, separator, 0);
    UpdateControls();
}

// ---- The buttons

int DLG_NewToolbar::SelectedButton() const
{
    return static_cast<int>(SendDlgItemMessage(buttonsControl, LB_GETCURSEL));
}

void DLG_NewToolbar::ShowButtons(int selected)
{
    SendDlgItemMessage(buttonsControl, LB_RESETCONTENT);
    for (const UINT button : m_buttons) {
        CCmdItem item;
        m_list.GetItemByCommand(button, item);
        addRow(*this, buttonsControl, button ? item.m_strName : CString(separator), button);
    }
    SendDlgItemMessage(buttonsControl, LB_SETCURSEL, static_cast<WPARAM>(selected));
    OnSelectCategory();
}

void DLG_NewToolbar::UpdateControls()
{
    const int button = SelectedButton(), last = static_cast<int>(m_buttons.size()) - 1;
    const auto enable = [this](int id, bool on) {
        if (CWnd* const control = GetDlgItem(id)) control->EnableWindow(on);
    };
    enable(addControl, SendDlgItemMessage(commandsControl, LB_GETCURSEL) >= 0);
    enable(removeControl, button >= 0);
    enable(upControl, button > 0);
    enable(downControl, button >= 0 && button < last);
}

void DLG_NewToolbar::OnAdd()
{
    if (SendDlgItemMessage(commandsControl, LB_GETCURSEL) < 0) return;
    const UINT command = selectedCommand(*this, commandsControl);
    const int at = SelectedButton() < 0 ? static_cast<int>(m_buttons.size()) : SelectedButton() + 1;
    m_buttons.insert(m_buttons.begin() + at, command);
    ShowButtons(at);
}

void DLG_NewToolbar::OnRemove()
{
    const int at = SelectedButton();
    if (at < 0) return;
    m_buttons.erase(m_buttons.begin() + at);
    ShowButtons(std::min(at, static_cast<int>(m_buttons.size()) - 1));
}

void DLG_NewToolbar::Move(int by)
{
    const int at = SelectedButton(), to = at + by;
    if (at < 0 || to < 0 || to >= static_cast<int>(m_buttons.size())) return;
    std::swap(m_buttons[static_cast<std::size_t>(at)], m_buttons[static_cast<std::size_t>(to)]);
    ShowButtons(to);
}
