// The buttons of a macro toolbar, and their form in a property store: five values a button, numbered from 0,
// "Name 0", "Cmd 0", "Has Bmp 0", "Bmp 0" and "Desc 0".
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"

#include <vector>

class CPropertyStore;

namespace corekit {

struct MacroButton {
    CString name;             // as the button shows it when it has no bitmap
    CString command;          // name of the macro, empty for none
    std::vector<BYTE> bitmap; // the stream form of a CDib, empty for none
    CString description;      // shown as the tool tip
};

inline constexpr int maximumMacroButtons = 50; // of one toolbar
inline constexpr int valuesOfMacroButton = 5;  // in the store

// As many buttons as the store has values for, five each, at most maximumMacroButtons; what is missing of
// one is empty.
COREKIT_API std::vector<MacroButton> LoadMacroButtons(CPropertyStore& store);
// Replaces all values of the store, others' too; nested stores stay.
COREKIT_API void SaveMacroButtons(CPropertyStore& store, const std::vector<MacroButton>& buttons);

} // namespace corekit
