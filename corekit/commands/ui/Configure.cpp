// The sheet in which a user changes keys and tool bars.
#include "corekit/commands/ui/AXPropertySheet.h"
#include "corekit/commands/ui/CommandList.h"
#include "corekit/commands/ui/PPage_CustomiseKeyboard.h"
#include "corekit/commands/ui/PPage_CustomiseToolbars.h"
#include "corekit/commands/ui/PPage_MacroToolbar.h"
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/resources/Messages.h"

#include <algorithm>

int CCommandList::Configure(CFrameWnd* frame, UINT tableId, CPropertyStore* keyStore,
                            CPropertyStore* macroStore, CPropertyStore* macroListA,
                            CPropertyStore* macroListB, int* changed, int* showToolbar)
{
    const auto table = std::ranges::find(m_tables, tableId, &KeyTable::id);
    if (table == m_tables.end()) return 0;
    CAXPropertySheet sheet(static_cast<UINT>(message::customiseTitle), frame);
    sheet.SetAutoDeleteMode(1);
    sheet.AddPage(new PPage_CustomiseToolbars(frame, *this));
    sheet.AddPage(new PPage_CustomiseKeyboard(*this, table->name));
    if (macroStore)
        sheet.AddPage(
            new PPage_MacroToolbar(frame, macroStore, macroListA, macroListB, changed, showToolbar));
    if (sheet.DoModal() != IDOK) return 0;
    SaveAcceleratorTables(keyStore);
    RebuildAcceleratorTables();
    return 1;
}
