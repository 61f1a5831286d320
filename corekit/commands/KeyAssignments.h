// A user's changes to keys, while they are being made: what the keyboard page works on.
//
// Keys are differences from the default tables: as long as a command has no custom key its default keys
// count, and its first custom key brings copies of them along. Nothing here needs a window.
#pragma once

#include "corekit/commands/KeyTables.h"
#include "corekit/framework/String.h"

#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace corekit::detail {

inline constexpr BYTE FNOINVERT = 2; // of ACCEL::fVirt: no menu is marked

// A table is meant by its resource number. Two keys are the same if key code and held keys are, whether
// they mark a menu or not. One thread at a time.
class COREKIT_API KeyAssignments {
public:
    // What is worked on: filled in at first, taken out at the end.
    CustomAcceleratorTables& Tables() { return m_tables; }
    // The custom keys of a command, the newest first; the default ones where it has none.
    std::vector<ACCEL> KeysOf(UINT table, WORD command, std::span<const ACCEL> defaults) const;
    // Gives the command that `key` names one key more, which counts as its newest. Nobody asks here who
    // holds the key already: see HolderOf.
    void Assign(UINT table, const ACCEL& key, std::span<const ACCEL> defaults);
    // Takes the custom key of that name from the command; whether it had one.
    bool Remove(UINT table, WORD command, const CString& keyName);
    // Takes all custom keys away, of all tables: the default ones count again.
    void ResetAll();

    // The command that holds the key already: among the custom keys of commands for which `isRival` is true,
    // then among default keys of commands without custom ones, here and in the keys that count everywhere.
    std::optional<WORD> HolderOf(UINT table, const ACCEL& key, std::span<const ACCEL> defaults,
                                 std::span<const ACCEL> everywhere,
                                 const std::function<bool(WORD)>& isRival) const;

private:
    const CCustomAcceleratorTable* Find(UINT table) const; // the last of that id
    // The table of that id, made if there is none.
    CCustomAcceleratorTable& Made(UINT table);
    bool HasCustomKey(UINT table, WORD command) const;

    CustomAcceleratorTables m_tables;
};

} // namespace corekit::detail
