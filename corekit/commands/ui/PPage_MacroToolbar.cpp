#include "corekit/commands/ui/PPage_MacroToolbar.h"

#include "corekit/commands/MacroProfile.h"
#include "corekit/commands/ui/ButtonBitmap.h"
#include "corekit/commands/ui/DLG_NewButton.h"
#include "corekit/resources/dialogs/CustomisePages.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/PropertyStore.h"

#include <algorithm>
#include <utility>

using namespace corekit;
using namespace corekit::detail;

IMPLEMENT_DYNAMIC(PPage_MacroToolbar, CAXPropertyPage)

namespace {
constexpr int addControl = 1000, upControl = 1001, commandControl = 1003, showControl = 1006,
              listControl = 1040, removeControl = 1041, selectBitmapControl = 1042, downControl = 1043,
              removeBitmapControl = 1044, descriptionControl = 1059;
}

BEGIN_MESSAGE_MAP(PPage_MacroToolbar, CAXPropertyPage)
ON_BN_CLICKED(addControl, &PPage_MacroToolbar::OnAdd)
ON_BN_CLICKED(removeControl, &PPage_MacroToolbar::OnRemove)
ON_BN_CLICKED(upControl, &PPage_MacroToolbar::OnMoveUp)
ON_BN_CLICKED(downControl, &PPage_MacroToolbar::OnMoveDown)
ON_LBN_SELCHANGE(listControl, &PPage_MacroToolbar::OnSelectButton)
ON_CBN_SELCHANGE(commandControl, &PPage_MacroToolbar::OnSelectCommand)
ON_BN_CLICKED(selectBitmapControl, &PPage_MacroToolbar::OnSelectBitmap)
ON_BN_CLICKED(removeBitmapControl, &PPage_MacroToolbar::OnRemoveBitmap)
ON_EN_KILLFOCUS(descriptionControl, &PPage_MacroToolbar::OnDescription)
ON_BN_CLICKED(showControl, &PPage_MacroToolbar::OnShowToolbar)
ON_WM_DRAWITEM()
END_MESSAGE_MAP()

PPage_MacroToolbar::PPage_MacroToolbar(CFrameWnd*, CPropertyStore* profile, CPropertyStore* macroListA,
                                       CPropertyStore* macroListB, int* changed, int* showToolbar)
    : CAXPropertyPage(dialogs::macroToolbar.id), m_profile(profile), m_changed(changed),
      m_showToolbar(showToolbar)
{
    m_commands.push_back("None");
    for (CPropertyStore* const list : {macroListA, macroListB})
        for (int i = 0; list && i < list->GetPropertyStoreCount(); ++i)
            m_commands.push_back(static_cast<const char*>(list->GetPropertyStoreName(i)));
}

PPage_MacroToolbar::~PPage_MacroToolbar() = default;

// ---- Loading and storing

void PPage_MacroToolbar::LoadPage()
{
    for (const CString& command : m_commands)
        SendDlgItemMessage(commandControl, CB_ADDSTRING, 0,
                           reinterpret_cast<LPARAM>(static_cast<const char*>(command)));
    for (const MacroButton& stored : LoadMacroButtons(*m_profile)) {
        Button button{stored.name, stored.description, dibOf(stored.bitmap), 0};
        const auto known = std::ranges::find_if(
            m_commands, [&](const CString& name) { return name.CompareNoCase(stored.command) == 0; });
        if (known != m_commands.end()) button.command = static_cast<int>(known - m_commands.begin());
        SendDlgItemMessage(listControl, LB_ADDSTRING, 0,
                           reinterpret_cast<LPARAM>(static_cast<const char*>(button.name)));
        m_buttons.push_back(std::move(button));
    }
    ::CheckDlgButton(m_hWnd, showControl, m_showToolbar && *m_showToolbar ? BST_CHECKED : BST_UNCHECKED);
    Select(0);
    CancelToClose();
}

int PPage_MacroToolbar::CommitPage()
{
    OnDescription(); // the focus may be there still
    std::vector<MacroButton> stored;
    for (const Button& button : m_buttons)
        stored.push_back(
            {button.name,
             button.command > 0 ? m_commands[static_cast<std::size_t>(button.command)] : CString(),
             bytesOf(button.bitmap.get()), button.description});
    SaveMacroButtons(*m_profile, stored);
    return 1;
}

void PPage_MacroToolbar::Changed()
{
    if (m_changed) *m_changed = 1;
    SetModified(1);
    UpdateControls();
}

// ---- The selected button

PPage_MacroToolbar::Button* PPage_MacroToolbar::Selected()
{
    const auto row = static_cast<std::size_t>(SendDlgItemMessage(listControl, LB_GETCURSEL));
    return row < m_buttons.size() ? &m_buttons[row] : nullptr;
}

void PPage_MacroToolbar::Select(int index)
{
    const int last = static_cast<int>(m_buttons.size()) - 1;
    SendDlgItemMessage(listControl, LB_SETCURSEL, static_cast<WPARAM>(std::min(index, last)));
    ShowButton();
}

void PPage_MacroToolbar::ShowButton()
{
    const Button* const button = Selected();
    SendDlgItemMessage(commandControl, CB_SETCURSEL, static_cast<WPARAM>(button ? button->command : 0));
    SetDlgItemText(descriptionControl, button ? button->description : CString());
    showPreview(*this, button ? button->bitmap.get() : nullptr);
    UpdateControls();
}

void PPage_MacroToolbar::UpdateControls()
{
    const Button* const button = Selected();
    const auto enable = [this](int id, bool on) {
        if (CWnd* const control = GetDlgItem(id)) control->EnableWindow(on);
    };
    for (const int id : {removeControl, commandControl, selectBitmapControl, descriptionControl})
        enable(id, button != nullptr);
    enable(upControl, button && button != &m_buttons.front());
    enable(downControl, button && button != &m_buttons.back());
    enable(removeBitmapControl, button && button->bitmap);
}

void PPage_MacroToolbar::OnSelectCommand()
{
    Button* const button = Selected();
    if (!button) return;
    button->command = std::max(0, static_cast<int>(SendDlgItemMessage(commandControl, CB_GETCURSEL)));
    Changed();
}

void PPage_MacroToolbar::OnDescription()
{
    Button* const button = Selected();
    CString text;
    GetDlgItemText(descriptionControl, text);
    if (!button || button->description == text) return;
    button->description = text;
    Changed();
}

void PPage_MacroToolbar::OnSelectBitmap()
{
    Button* const button = Selected();
    if (!button || chooseButtonBitmap(*this, button->bitmap) == BitmapChoice::cancelled) return;
    showPreview(*this, button->bitmap.get());
    Changed();
}

void PPage_MacroToolbar::OnRemoveBitmap()
{
    Button* const button = Selected();
    if (!button) return;
    button->bitmap.reset();
    showPreview(*this, nullptr);
    Changed();
}

void PPage_MacroToolbar::OnDrawItem(int id, DRAWITEMSTRUCT* item)
{
    const Button* const button = Selected();
    if (id == previewControl)
        drawPreview(*item, button ? button->bitmap.get() : nullptr);
    else
        CAXPropertyPage::OnDrawItem(id, item);
}

void PPage_MacroToolbar::OnShowToolbar()
{
    if (m_showToolbar) *m_showToolbar = ::IsDlgButtonChecked(m_hWnd, showControl) == BST_CHECKED;
    Changed();
}

// ---- The list of buttons

void PPage_MacroToolbar::OnAdd()
{
    if (m_buttons.size() == maximumMacroButtons) {
        StockMessageBox(this, message::tooManyButtons, MB_OK | MB_ICONEXCLAMATION);
        return;
    }
    std::vector<CString> names;
    for (const Button& button : m_buttons) names.push_back(button.name);
    DLG_NewButton dialog(names, m_commands, this);
    if (dialog.DoModal() != IDOK) return;
    const auto selected = static_cast<int>(SendDlgItemMessage(listControl, LB_GETCURSEL));
    const int at = selected < 0 ? static_cast<int>(m_buttons.size()) : selected + 1;
    m_buttons.insert(m_buttons.begin() + at,
                     Button{dialog.m_name, dialog.m_description, std::move(dialog.m_bitmap),
                            std::max(dialog.m_command, 0)});
    SendDlgItemMessage(listControl, LB_INSERTSTRING, static_cast<WPARAM>(at),
                       reinterpret_cast<LPARAM>(static_cast<const char*>(dialog.m_name)));
    Select(at);
    Changed();
}

void PPage_MacroToolbar::OnRemove()
{
    const auto row = static_cast<int>(SendDlgItemMessage(listControl, LB_GETCURSEL));
    if (!Selected()) return;
    m_buttons.erase(m_buttons.begin() + row);
    SendDlgItemMessage(listControl, LB_DELETESTRING, static_cast<WPARAM>(row));
    Select(row);
    Changed();
}

void PPage_MacroToolbar::Move(int by)
{
    const auto row = static_cast<int>(SendDlgItemMessage(listControl, LB_GETCURSEL));
    const int to = row + by;
    if (!Selected() || to < 0 || to >= static_cast<int>(m_buttons.size())) return;
    std::swap(m_buttons[static_cast<std::size_t>(row)], m_buttons[static_cast<std::size_t>(to)]);
    SendDlgItemMessage(listControl, LB_DELETESTRING, static_cast<WPARAM>(row));
    const CString& name = m_buttons[static_cast<std::size_t>(to)].name;
    SendDlgItemMessage(listControl, LB_INSERTSTRING, static_cast<WPARAM>(to),
                       reinterpret_cast<LPARAM>(static_cast<const char*>(name)));
    Select(to);
    Changed();
}
