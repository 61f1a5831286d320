// The platform's keyboard layouts, by language.
#pragma once

#include "corekit/framework/String.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Types.h"

#include <vector>

namespace corekit::detail {

inline WORD languageOf(HKL layout) { return LOWORD(reinterpret_cast<UINT_PTR>(layout)); }

// In the user's order.
std::vector<HKL> platformLayouts();
// Puts the first layout of the language in force; stays as it is without one, and for 0.
void activateLayoutOf(DWORD locale);

CString languageName(HKL layout); // in English; empty for an unknown language
int codePageOf(HKL layout);       // that of the layout's language; 0 for an unknown one

} // namespace corekit::detail
