#include "corekit/unicode/ui/keyboards/KBT_Welsh.h"

#include "corekit/unicode/ui/keyboards/HeldKeys.h"
#include "corekit/unicode/ui/keyboards/layouts/Welsh.h"

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(KBT_Welsh, CKBLayout)

KBT_Welsh::KBT_Welsh() : CKBLayout("Welsh (Internal)", 515, 1252) {}

void KBT_Welsh::Activate()
{
    constexpr DWORD englishUnitedKingdom = 2057;
    ActivateHelper(englishUnitedKingdom);
}

int KBT_Welsh::TranslateKey(MSG* message)
{
    const bool accent = isKeyDown(VK_RMENU) || (isKeyDown(VK_CONTROL) && isKeyDown(VK_MENU));
    if (!message || !accent) return 0;
    const bool capital = isKeyDown(VK_SHIFT) && !isKeyDown(VK_CAPITAL);
    const auto letter = welsh.Find(message->wParam, capital ? KeyState::shift : KeyState::plain);
    if (!letter) return 0;
    SendCharacter(*message, letter->front());
    return 1;
}
