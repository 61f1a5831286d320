// Commands in the lists of dialogs: by category, with the command as the row's data.
#pragma once

#include "corekit/commands/CmdItem.h"
#include "corekit/framework/ui/Wnd.h"

#include <vector>

namespace corekit::detail {

inline constexpr char allCommands[] = "All Commands";

// The categories, sorted and each once, and "All Commands" at the end; the first is selected.
void fillCategories(CWnd& dialog, int comboBox, const std::vector<CCmdItem>& commands);
CString selectedCategory(const CWnd& dialog, int comboBox);
// The commands of the category.
void fillCommands(CWnd& dialog, int listBox, const std::vector<CCmdItem>& commands, const CString& category);
// The data of the list's selected row; 0 without one.
UINT selectedCommand(const CWnd& dialog, int listBox);
int addRow(CWnd& dialog, int listBox, const CString& text, UINT data);

} // namespace corekit::detail
