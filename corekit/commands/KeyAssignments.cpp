#include "corekit/commands/KeyAssignments.h"

#include "corekit/foundation/KeyNames.h"

#include <algorithm>

namespace corekit::detail {
namespace {

std::span<const ACCEL> entriesOf(const CCustomAcceleratorTable* table)
{
    if (!table) return {};
    return {table->m_entries.GetData(), static_cast<std::size_t>(table->m_entries.GetSize())};
}

bool isSameStroke(const ACCEL& a, const ACCEL& b)
{
    return a.key == b.key && (a.fVirt & ~FNOINVERT) == (b.fVirt & ~FNOINVERT);
}

} // namespace

const CCustomAcceleratorTable* KeyAssignments::Find(UINT table) const
{
    for (int i = m_tables.GetSize(); i-- > 0;)
        if (m_tables.GetAt(i).m_nTableID == table) return &m_tables.GetAt(i);
    return nullptr;
}

CCustomAcceleratorTable& KeyAssignments::Made(UINT table)
{
    if (!Find(table)) {
        CCustomAcceleratorTable made(table);
        m_tables.Add(made);
    }
    return const_cast<CCustomAcceleratorTable&>(*Find(table));
}

bool KeyAssignments::HasCustomKey(UINT table, WORD command) const
{
    return std::ranges::any_of(entriesOf(Find(table)), [=](const ACCEL& key) { return key.cmd == command; });
}

std::vector<ACCEL> KeyAssignments::KeysOf(UINT table, WORD command, std::span<const ACCEL> defaults) const
{
    std::vector<ACCEL> keys;
    const auto isOfCommand = [=](const ACCEL& key) { return key.cmd == command; };
    std::ranges::copy_if(entriesOf(Find(table)), std::back_inserter(keys), isOfCommand);
    std::ranges::reverse(keys);
    if (keys.empty()) std::ranges::copy_if(defaults, std::back_inserter(keys), isOfCommand);
    return keys;
}

void KeyAssignments::Assign(UINT table, const ACCEL& key, std::span<const ACCEL> defaults)
{
    const bool isFirst = !HasCustomKey(table, key.cmd);
    CCustomAcceleratorTable& made = Made(table);
    for (const ACCEL& each : defaults)
        if (ACCEL copy = each; isFirst && copy.cmd == key.cmd) made.m_entries.Add(copy);
    ACCEL added = key;
    made.m_entries.Add(added);
}

bool KeyAssignments::Remove(UINT table, WORD command, const CString& keyName)
{
    if (!Find(table)) return false;
    CCustomAcceleratorTable& custom = Made(table);
    for (int i = custom.m_entries.GetSize(); i-- > 0;) {
        const ACCEL& key = custom.m_entries[i];
        if (key.cmd != command || GetAcceleratorKeyName(key) != keyName) continue;
        custom.m_entries.RemoveAt(i);
        return true;
    }
    return false;
}

void KeyAssignments::ResetAll()
{
    for (int i = 0; i < m_tables.GetSize(); ++i) m_tables[i].m_entries.RemoveAll();
}

std::optional<WORD> KeyAssignments::HolderOf(UINT table, const ACCEL& key, std::span<const ACCEL> defaults,
                                             std::span<const ACCEL> everywhere,
                                             const std::function<bool(WORD)>& isRival) const
{
    for (const ACCEL& each : entriesOf(Find(table)))
        if (isSameStroke(each, key) && isRival(each.cmd)) return each.cmd;
    for (const std::span<const ACCEL> keys : {defaults, everywhere})
        for (const ACCEL& each : keys)
            if (isSameStroke(each, key) && !HasCustomKey(table, each.cmd)) return each.cmd;
    return std::nullopt;
}

} // namespace corekit::detail
