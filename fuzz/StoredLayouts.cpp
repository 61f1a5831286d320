// A property store from outside, read as each of the forms that window components keep: the layout of bars,
// key tables, macro buttons. What was read is written, read again and found the same.
#include "corekit/commands/KeyTables.h"
#include "corekit/commands/MacroBitmaps.h"
#include "corekit/commands/MacroProfile.h"
#include "corekit/framework/Exception.h"
#include "corekit/stores/MemoryStream.h"
#include "corekit/stores/PropertyStore.h"
#include "corekit/windows/BarRecords.h"

#include <cstdlib>

using namespace corekit;
using namespace corekit::detail;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    CPropertyStore store;
    try {
        CMemoryStream stream(data, static_cast<int>(size));
        store.ReadStream(stream);
    } catch (CException* refused) {
        refused->Delete();
    }
    BarLayout layout, again;
    const auto all = [](UINT) { return true; };
    if (loadBarLayout(store, CSize(1920, 1080), all, layout)) {
        CPropertyStore written;
        saveBarLayout(written, layout);
        if (!loadBarLayout(written, layout.screen, all, again) || again.bars.size() > layout.bars.size())
            std::abort();
    }
    CustomAcceleratorTables tables, tablesAgain;
    loadCustomKeys(store, tables);
    CPropertyStore keys;
    saveCustomKeys(keys, tables);
    loadCustomKeys(keys, tablesAgain);
    if (tablesAgain.GetSize() != tables.GetSize()) std::abort();
    for (int i = 0; i < tables.GetSize(); ++i) {
        const auto& entries = tables[i].m_entries;
        if (entries.GetSize() != tablesAgain[i].m_entries.GetSize()) std::abort();
        const std::span<const ACCEL> rows(entries.GetData(), static_cast<std::size_t>(entries.GetSize()));
        if (mergedKeys(rows, rows, rows).size() < rows.size()) std::abort();
    }
    const std::vector<MacroButton> buttons = LoadMacroButtons(store);
    for (const MacroButton& button : buttons)
        if (const auto bitmap = dibOf(button.bitmap); bitmap && bytesOf(bitmap.get()).empty()) std::abort();
    CPropertyStore macros;
    SaveMacroButtons(macros, buttons);
    if (LoadMacroButtons(macros).size() != buttons.size()) std::abort();
    return 0;
}
