#include "corekit/commands/KeyTables.h"

#include "corekit/stores/PropertyStore.h"

#include <algorithm>
#include <cstring>

namespace corekit::detail {
namespace {

static_assert(sizeof(ACCEL) == 6 && offsetof(ACCEL, key) == 2 && offsetof(ACCEL, cmd) == 4,
              "keys are stored as they lie in memory");

constexpr char countName[] = "Custom Key Table Count";

CString nameOf(int table, const char* what)
{
    CString name;
    name.Format("Custom Key Table %d %s", table, what);
    return name;
}

bool isSameKey(const ACCEL& a, const ACCEL& b)
{
    return a.fVirt == b.fVirt && a.key == b.key && a.cmd == b.cmd;
}

CCustomAcceleratorTable readTable(CPropertyStore& store, int number, UINT id)
{
    CCustomAcceleratorTable table(id);
    int wanted = 0;
    CByteArray data;
    if (!store.GetValue(nameOf(number, "Data Size"), wanted) || !store.GetValue(nameOf(number, "Data"), data))
        return table;
    const int size = std::min(wanted, data.GetSize());
    const int count = size > 0 ? size / static_cast<int>(sizeof(ACCEL)) : 0;
    table.m_entries.SetSize(count);
    if (count > 0)
        std::memcpy(table.m_entries.GetData(), data.GetData(),
                    static_cast<std::size_t>(count) * sizeof(ACCEL));
    return table;
}

} // namespace

std::vector<ACCEL> mergedKeys(std::span<const ACCEL> defaults, std::span<const ACCEL> custom,
                              std::span<const ACCEL> fixed)
{
    std::vector<ACCEL> merged(defaults.begin(), defaults.end());
    std::vector<ACCEL> pristine = merged; // a command of 0 marks a slot that a custom key has taken
    for (auto key = custom.rbegin(); key != custom.rend(); ++key) {
        const auto found = std::find_if(merged.rbegin(), merged.rend(),
                                        [&](const ACCEL& entry) { return entry.cmd == key->cmd; });
        if (found == merged.rend()) continue;
        const auto index = static_cast<std::size_t>(merged.rend() - found) - 1;
        if (index < pristine.size() && isSameKey(pristine[index], *found)) {
            *found = *key;
            pristine[index].cmd = 0;
        } else {
            merged.push_back(*key);
        }
    }
    merged.insert(merged.end(), fixed.begin(), fixed.end());
    return merged;
}

void loadCustomKeys(CPropertyStore& store, CustomAcceleratorTables& tables)
{
    int count = 0;
    store.GetValue(countName, count);
    // Each table has a value of its own, so no more can be there than the store has values.
    count = std::min(count, store.GetPropertyStoreValueCount());
    for (int i = 0; i < count; ++i) {
        UINT id = 0;
        if (!store.GetValue(nameOf(i, "ID"), id)) continue;
        CCustomAcceleratorTable table = readTable(store, i, id);
        tables.Add(table);
    }
}

void saveCustomKeys(CPropertyStore& store, const CustomAcceleratorTables& tables)
{
    store.SetValue(countName, tables.GetSize());
    for (int i = 0; i < tables.GetSize(); ++i) {
        const CCustomAcceleratorTable& table = tables[i];
        std::vector<ACCEL> keys(static_cast<std::size_t>(table.m_entries.GetSize()), ACCEL{});
        for (std::size_t at = 0; at < keys.size(); ++at) {
            const ACCEL& key = table.m_entries[static_cast<int>(at)];
            BYTE* const row = reinterpret_cast<BYTE*>(&keys[at]);
            row[1] = 0; // the byte between flags and key, so that equal tables are equal bytes
            keys[at].fVirt = key.fVirt;
            keys[at].key = key.key;
            keys[at].cmd = key.cmd;
        }
        const auto size = static_cast<int>(keys.size() * sizeof(ACCEL));
        store.SetValue(nameOf(i, "ID"), table.m_nTableID);
        store.SetValue(nameOf(i, "Data Size"), size);
        store.SetBinaryValue(nameOf(i, "Data"), keys.data(), static_cast<DWORD>(size));
    }
}

} // namespace corekit::detail
