#include "corekit/commands/ui/PPage_CustomiseKeyboard.h"

#include "corekit/commands/ui/CommandCategories.h"
#include "corekit/foundation/KeyNames.h"
#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/HotKeys.h"
#include "corekit/platform/ListBoxes.h"
#include "corekit/resources/dialogs/CustomisePages.h"
#include "corekit/resources/Messages.h"

#include <algorithm>

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(PPage_CustomiseKeyboard, CAXPropertyPage)

namespace {

constexpr int locationControl = 1039, commandsControl = 1040, categoryControl = 1041,
              descriptionControl = 1042, keysControl = 1043, hotKeyControl = 1044, holderControl = 1045,
              assignControl = 1046, removeControl = 1047, resetControl = 1048, clearControl = 1049;
// The keys of this table count wherever the user is.
constexpr char keysEverywhere[] = "Splitter Mode Global";

std::span<const ACCEL> spanOf(const CCommandList::AccelArray& keys)
{
    return {keys.GetData(), static_cast<std::size_t>(keys.GetSize())};
}

} // namespace

BEGIN_MESSAGE_MAP(PPage_CustomiseKeyboard, CAXPropertyPage)
ON_CBN_SELCHANGE(locationControl, &PPage_CustomiseKeyboard::OnSelectLocation)
ON_CBN_SELCHANGE(categoryControl, &PPage_CustomiseKeyboard::OnSelectCategory)
ON_LBN_SELCHANGE(commandsControl, &PPage_CustomiseKeyboard::OnSelectCommand)
ON_LBN_SELCHANGE(keysControl, &PPage_CustomiseKeyboard::OnSelectKey)
ON_EN_CHANGE(hotKeyControl, &PPage_CustomiseKeyboard::OnHotKey)
ON_BN_CLICKED(assignControl, &PPage_CustomiseKeyboard::OnAssign)
ON_BN_CLICKED(removeControl, &PPage_CustomiseKeyboard::OnRemove)
ON_BN_CLICKED(resetControl, &PPage_CustomiseKeyboard::OnResetAll)
ON_BN_CLICKED(clearControl, &PPage_CustomiseKeyboard::OnClearKey)
END_MESSAGE_MAP()

PPage_CustomiseKeyboard::PPage_CustomiseKeyboard(CCommandList& commands, const CString& location)
    : CAXPropertyPage(dialogs::customiseKeyboard.id), m_list(commands), m_location(location)
{
    m_list.GetCustomAccelTableArray(m_keys.Tables());
    const int everywhere = m_list.FindAccelTableID(keysEverywhere);
    if (everywhere >= 0) CCommandList::GetDefaultAccelTable(everywhere, m_everywhere);
}

void PPage_CustomiseKeyboard::LoadPage()
{
    for (int i = m_list.GetRegisteredAccelTableSize(); i-- > 0;) {
        const char* const name = m_list.m_tables[static_cast<std::size_t>(i)].name;
        SendDlgItemMessage(locationControl, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
    }
    SendDlgItemMessage(locationControl, CB_SETCURSEL, 0);
    OnSelectLocation();
}

int PPage_CustomiseKeyboard::CommitPage()
{
    m_list.SetCustomAccelTableArray(m_keys.Tables());
    return 1;
}

// ---- From the location down to the keys

void PPage_CustomiseKeyboard::OnSelectLocation()
{
    GetDlgItemText(locationControl, m_location);
    m_table = static_cast<UINT>(m_list.FindAccelTableID(m_location));
    CCommandList::GetDefaultAccelTable(static_cast<int>(m_table), m_defaults);
    m_commands.clear();
    for (const ACCEL& key : Defaults()) {
        CCmdItem item;
        if (m_list.GetItemByCommand(key.cmd, item) &&
            std::ranges::find(m_commands, item.m_nCommand, &CCmdItem::m_nCommand) == m_commands.end())
            m_commands.push_back(item);
    }
    fillCategories(*this, categoryControl, m_commands);
    OnSelectCategory();
}

void PPage_CustomiseKeyboard::OnSelectCategory()
{
    fillCommands(*this, commandsControl, m_commands, selectedCategory(*this, categoryControl));
    OnSelectCommand();
}

void PPage_CustomiseKeyboard::OnSelectCommand()
{
    CCmdItem item;
    m_list.GetItemByCommand(Command(), item);
    SetDlgItemText(descriptionControl, Command() ? item.GetDescription() : CString());
    ShowKeys();
}

void PPage_CustomiseKeyboard::ShowKeys()
{
    SendDlgItemMessage(keysControl, LB_RESETCONTENT);
    for (const ACCEL& key : m_keys.KeysOf(m_table, static_cast<WORD>(Command()), Defaults()))
        if (Command()) addRow(*this, keysControl, GetAcceleratorKeyName(key), 0);
    UpdateControls();
}

std::span<const ACCEL> PPage_CustomiseKeyboard::Defaults() const { return spanOf(m_defaults); }

UINT PPage_CustomiseKeyboard::Command() const { return selectedCommand(*this, commandsControl); }

// ---- The key in hand

bool PPage_CustomiseKeyboard::ReadHotKey(ACCEL& key) const
{
    const auto pressed = static_cast<DWORD_PTR>(SendDlgItemMessage(hotKeyControl, HKM_GETHOTKEY));
    const BYTE held = HIBYTE(LOWORD(pressed));
    key = {};
    key.fVirt = FVIRTKEY | FNOINVERT;
    if (held & HOTKEYF_ALT) key.fVirt |= FALT;
    if (held & HOTKEYF_CONTROL) key.fVirt |= FCONTROL;
    if (held & HOTKEYF_SHIFT) key.fVirt |= FSHIFT;
    key.key = LOBYTE(LOWORD(pressed));
    key.cmd = static_cast<WORD>(Command());
    return key.key != 0;
}

void PPage_CustomiseKeyboard::UpdateControls()
{
    const bool hasCommand = Command() != 0;
    const bool hasKey = SendDlgItemMessage(keysControl, LB_GETCURSEL) >= 0;
    if (CWnd* const hotKey = GetDlgItem(hotKeyControl)) hotKey->EnableWindow(hasCommand);
    if (CWnd* const remove = GetDlgItem(removeControl)) remove->EnableWindow(hasCommand && hasKey);
    ShowHolder();
}

void PPage_CustomiseKeyboard::ShowHolder()
{
    ACCEL key;
    const bool hasKey = ReadHotKey(key) && key.cmd;
    const auto categoryOf = [this](WORD command) {
        CCmdItem item;
        m_list.GetItemByCommand(command, item);
        return item.GetCatagory();
    };
    const auto isRival = [&](WORD command) { return categoryOf(command) == categoryOf(key.cmd); };
    std::optional<WORD> holder;
    if (hasKey) holder = m_keys.HolderOf(m_table, key, Defaults(), spanOf(m_everywhere), isRival);
    CString text;
    CCmdItem item;
    if (holder) {
        m_list.GetItemByCommand(*holder, item);
        text = item.GetCatagory() + " - " + item.m_strName;
    } else if (hasKey) {
        text.LoadString(message::keyUnassigned);
    }
    SetDlgItemText(holderControl, text);
    if (CWnd* const assign = GetDlgItem(assignControl)) assign->EnableWindow(hasKey && !holder);
}

void PPage_CustomiseKeyboard::OnAssign()
{
    ACCEL key;
    if (!ReadHotKey(key) || !key.cmd) return;
    m_keys.Assign(m_table, key, Defaults());
    SetModified(1);
    ShowKeys();
}

void PPage_CustomiseKeyboard::OnRemove()
{
    const auto row = SendDlgItemMessage(keysControl, LB_GETCURSEL);
    char name[128] = "";
    if (row < 0 || SendDlgItemMessage(keysControl, LB_GETTEXTLEN, static_cast<WPARAM>(row)) >= 128) return;
    SendDlgItemMessage(keysControl, LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(name));
    if (m_keys.Remove(m_table, static_cast<WORD>(Command()), name)) SetModified(1);
    ShowKeys();
}

void PPage_CustomiseKeyboard::OnResetAll()
{
    m_keys.ResetAll();
    SetModified(1);
    ShowKeys();
}

void PPage_CustomiseKeyboard::OnClearKey()
{
    SendDlgItemMessage(hotKeyControl, HKM_SETHOTKEY, 0);
    UpdateControls();
}
