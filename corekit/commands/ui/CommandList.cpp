#include "corekit/commands/ui/CommandList.h"

#include "corekit/foundation/AcceleratorResource.h"

#include <algorithm>
#include <utility>

IMPLEMENT_DYNAMIC(CCommandList, CObject)

using namespace corekit::detail;

namespace {

std::vector<ACCEL> loadKeys(UINT tableId)
{
    const HACCEL table = AfxLoadAccelerators(tableId);
    if (!table) return {};
    std::vector<ACCEL> keys(static_cast<std::size_t>(CopyAcceleratorTableA(table, nullptr, 0)));
    CopyAcceleratorTableA(table, keys.data(), static_cast<int>(keys.size()));
    DestroyAcceleratorTable(table);
    return keys;
}

} // namespace

CCommandList& GetCommandList()
{
    // The one in which tool bars look.
    struct OwnList final : CCommandList {
        OwnList() { setToolBarCommands(this); }
        ~OwnList() override { setToolBarCommands(nullptr); }
    };
    static OwnList list;
    return list;
}

CCommandList::~CCommandList()
{
    for (const KeyTable& table : m_tables)
        if (table.handle) DestroyAcceleratorTable(table.handle);
}

// ---- Commands

int CCommandList::GetCommandIndex(UINT command) const
{
    int index = static_cast<int>(m_commands.size()) - 1;
    while (index >= 0 && m_commands[static_cast<std::size_t>(index)].m_nCommand != command) --index;
    return index;
}

void CCommandList::RegisterCommand(UINT command, UINT smallBitmap, UINT largeBitmap, UINT imageIndex,
                                   const char* category, const char* name)
{
    if (GetCommandIndex(command) >= 0) return;
    CCmdItem item;
    item.m_nCommand = command;
    item.m_nSmallBitmap = smallBitmap;
    item.m_nLargeBitmap = largeBitmap;
    item.m_nImageIndex = imageIndex;
    item.m_strCategory = category;
    item.m_strName = name;
    m_commands.push_back(item);
}

int CCommandList::GetItemByCommand(UINT command, CCmdItem& item) const
{
    const int index = GetCommandIndex(command);
    if (index < 0) return 0;
    item = m_commands[static_cast<std::size_t>(index)];
    return 1;
}

// ---- Keys

void CCommandList::RegisterAcceleratorTable(const char* name, UINT tableId, UINT fixedTableId)
{
    if (std::ranges::find(m_tables, tableId, &KeyTable::id) == m_tables.end())
        m_tables.push_back({name, tableId, fixedTableId, nullptr});
}

HACCEL* CCommandList::GetAcceleratorTable(UINT tableId)
{
    const auto table = std::ranges::find(m_tables, tableId, &KeyTable::id);
    if (table == m_tables.end()) return nullptr;
    if (!table->handle) table->handle = Build(*table);
    return &table->handle;
}

HACCEL CCommandList::Build(const KeyTable& table) const
{
    const int custom = FindCustomAccelTable(table.id);
    std::span<const ACCEL> customKeys;
    if (custom >= 0) {
        const AccelArray& entries = m_customTables.GetAt(custom).m_entries;
        customKeys = {entries.GetData(), static_cast<std::size_t>(entries.GetSize())};
    }
    const std::vector<ACCEL> keys = mergedKeys(loadKeys(table.id), customKeys, loadKeys(table.fixedId));
    return CreateAcceleratorTableA(keys.data(), static_cast<int>(keys.size()));
}

int CCommandList::FindCustomAccelTable(UINT tableId) const
{
    int index = m_customTables.GetSize() - 1;
    while (index >= 0 && m_customTables.GetAt(index).m_nTableID != tableId) --index;
    return index;
}

void CCommandList::GetDefaultAccelTable(int tableId, AccelArray& entries)
{
    const std::vector<ACCEL> keys = loadKeys(static_cast<UINT>(tableId));
    entries.SetSize(static_cast<int>(keys.size()));
    std::ranges::copy(keys, entries.GetData());
}

int CCommandList::FindAccelTableID(const CString& name) const
{
    for (auto table = m_tables.rbegin(); table != m_tables.rend(); ++table)
        if (table->name == name) return static_cast<int>(table->id);
    return -1;
}

void CCommandList::GetDefaultAccelTableByIndex(int index, AccelArray& entries) const
{
    if (index >= 0 && index < GetRegisteredAccelTableSize())
        GetDefaultAccelTable(static_cast<int>(m_tables[static_cast<std::size_t>(index)].id), entries);
}

void CCommandList::RebuildAcceleratorTables()
{
    for (auto each = m_tables.rbegin(); each != m_tables.rend(); ++each) {
        if (!each->handle) continue;
        DestroyAcceleratorTable(std::exchange(each->handle, nullptr));
        GetAcceleratorTable(each->id);
    }
}

void CCommandList::GetCustomAccelTableArray(CustomTableArray& tables) const { tables.Copy(m_customTables); }
void CCommandList::SetCustomAccelTableArray(const CustomTableArray& tables) { m_customTables.Copy(tables); }

int CCommandList::LoadAcceleratorTables(CPropertyStore* store)
{
    if (!store) return 0;
    loadCustomKeys(*store, m_customTables);
    return 1;
}

int CCommandList::SaveAcceleratorTables(CPropertyStore* store) const
{
    if (!store) return 0;
    saveCustomKeys(*store, m_customTables);
    return 1;
}

// ---- Toolbars

void CCommandList::RegisterDefaultToolbar(UINT id, const char* name, const CUIntArray& buttons)
{
    if (std::ranges::find(m_defaultToolbars, id, &DefaultToolbar::id) != m_defaultToolbars.end()) return;
    const UINT* const first = buttons.GetData();
    m_defaultToolbars.push_back({id, name, std::vector<UINT>(first, first + buttons.GetSize())});
}

int CCommandList::GetDefaultToolbarByIndex(int index, UINT& id, CString& name, CUIntArray& buttons) const
{
    if (index < 0 || index >= GetDefaultToolbarCount()) return 0;
    const DefaultToolbar& toolbar = m_defaultToolbars[static_cast<std::size_t>(index)];
    id = toolbar.id;
    name = toolbar.name;
    buttons.SetSize(static_cast<int>(toolbar.buttons.size()));
    std::ranges::copy(toolbar.buttons, buttons.GetData());
    return 1;
}

void CCommandList::AddToolbar(CIntelliToolBar* toolbar)
{
    const auto isListed = [toolbar](const CIntelliToolBar* other) {
        return other == toolbar || other->GetDlgCtrlID() == toolbar->GetDlgCtrlID();
    };
    if (toolbar && std::ranges::none_of(m_toolbars, isListed)) m_toolbars.push_back(toolbar);
}

void CCommandList::RemoveToolbar(const CIntelliToolBar* toolbar) { std::erase(m_toolbars, toolbar); }

CIntelliToolBar* CCommandList::GetToolbarByIndex(int index) const
{
    return index < 0 || index >= GetToolbarCount() ? nullptr : m_toolbars[static_cast<std::size_t>(index)];
}

void CCommandList::DestroyAllToolbars()
{
    // A bar that goes takes itself off the list.
    const std::vector<CIntelliToolBar*> toolbars = m_toolbars;
    for (auto toolbar = toolbars.rbegin(); toolbar != toolbars.rend(); ++toolbar)
        if (std::ranges::find(m_toolbars, *toolbar) != m_toolbars.end()) (*toolbar)->DestroyWindow();
    m_toolbars.clear();
}

int CCommandList::FindToolbarButton(UINT command, CIntelliToolBar*& toolbar, int& index, CRect& rect) const
{
    for (CIntelliToolBar* const each : m_toolbars) {
        const int found = each->CommandToIndex(command);
        if (found < 0 || !each->GetItemRect(found, &rect)) continue;
        toolbar = each;
        index = found;
        each->ClientToScreen(&rect);
        return 1;
    }
    return 0;
}
