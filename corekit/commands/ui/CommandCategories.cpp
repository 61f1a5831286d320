#include "corekit/commands/ui/CommandCategories.h"

#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/ListBoxes.h"

#include <set>
#include <string>

namespace corekit::detail {

void fillCategories(CWnd& dialog, int comboBox, const std::vector<CCmdItem>& commands)
{
    std::set<std::string> names;
    for (const CCmdItem& item : commands) names.insert(static_cast<const char*>(item.GetCatagory()));
    dialog.SendDlgItemMessage(comboBox, CB_RESETCONTENT);
    for (const std::string& name : names)
        dialog.SendDlgItemMessage(comboBox, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    dialog.SendDlgItemMessage(comboBox, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(allCommands));
    dialog.SendDlgItemMessage(comboBox, CB_SETCURSEL, 0);
}

CString selectedCategory(const CWnd& dialog, int comboBox)
{
    CString name;
    dialog.GetDlgItemText(comboBox, name);
    return name;
}

int addRow(CWnd& dialog, int listBox, const CString& text, UINT data)
{
    const LRESULT row = dialog.SendDlgItemMessage(listBox, LB_ADDSTRING, 0,
                                                  reinterpret_cast<LPARAM>(static_cast<const char*>(text)));
    dialog.SendDlgItemMessage(listBox, LB_SETITEMDATA, static_cast<WPARAM>(row), data);
    return static_cast<int>(row);
}

void fillCommands(CWnd& dialog, int listBox, const std::vector<CCmdItem>& commands, const CString& category)
{
    dialog.SendDlgItemMessage(listBox, LB_RESETCONTENT);
    for (const CCmdItem& item : commands)
        if (category == allCommands || item.GetCatagory() == category)
            addRow(dialog, listBox, item.m_strName, item.m_nCommand);
}

UINT selectedCommand(const CWnd& dialog, int listBox)
{
    const LRESULT row = dialog.SendDlgItemMessage(listBox, LB_GETCURSEL);
    return row < 0 ? 0
                   : static_cast<UINT>(
                         dialog.SendDlgItemMessage(listBox, LB_GETITEMDATA, static_cast<WPARAM>(row)));
}

} // namespace corekit::detail
