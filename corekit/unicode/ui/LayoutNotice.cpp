// The manager hears of each layout that the user puts in force.
#include "corekit/platform/Windows.h"
#include "corekit/unicode/ui/UnicodeManager.h"

namespace {

void hear(UINT charSet, HKL layout)
{
    CUnicodeManager* const manager = CUnicodeManager::GetObjectA();
    if (manager->GetKeyboardCount() > 0) manager->HandleInputLangChange(charSet, layout);
}

[[gnu::constructor]] void startListening() { corekit::detail::setLayoutListener(&hear); }
[[gnu::destructor]] void stopListening() { corekit::detail::setLayoutListener(nullptr); }

} // namespace
