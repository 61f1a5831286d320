#include "corekit/unicode/ui/keyboards/SystemKeyboard.h"

#include "corekit/platform/KeyboardLayouts.h"
#include "corekit/unicode/ui/keyboards/HeldKeys.h"

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(CSystemKeyboard, CKBLayout)
IMPLEMENT_DYNAMIC(KBT_PortugueseExtension, CKBLayout)
IMPLEMENT_DYNAMIC(KBT_ThaiExtension, CKBLayout)

void PlatformKeyboard::Activate() { ActivateKeyboardLayout(m_layout, 0); }

int KBT_ThaiExtension::TranslateKey(MSG* message)
{
    constexpr WCHAR withCtrl = 0xF103, withShift = 0xF105;
    if (!message || isKeyDown(VK_MENU) || message->wParam != VK_SPACE) return 0;
    const bool ctrl = isKeyDown(VK_CONTROL);
    if (!ctrl && !isKeyDown(VK_SHIFT)) return 0;
    SendCharacter(*message, ctrl ? withCtrl : withShift);
    return 1;
}
