#include "corekit/unicode/ui/keyboards/TableKeyboard.h"

#include "corekit/unicode/ui/keyboards/HeldKeys.h"
#include "corekit/unicode/ui/keyboards/layouts/Arabic.h"
#include "corekit/unicode/ui/keyboards/layouts/Assamese.h"
#include "corekit/unicode/ui/keyboards/layouts/Bengali.h"
#include "corekit/unicode/ui/keyboards/layouts/BengaliInscript.h"
#include "corekit/unicode/ui/keyboards/layouts/Hebrew.h"
#include "corekit/unicode/ui/keyboards/layouts/Persian.h"
#include "corekit/unicode/ui/keyboards/layouts/Tamil.h"
#include "corekit/unicode/ui/keyboards/layouts/Urdu.h"
#include "corekit/unicode/ui/keyboards/layouts/UrduIndian.h"

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(KBT_Arabic, CKBLayout)
IMPLEMENT_DYNAMIC(KBT_Assamme, CKBLayout)
IMPLEMENT_DYNAMIC(KBT_Bengali, CKBLayout)
IMPLEMENT_DYNAMIC(KBT_BengaliInscript, CKBLayout)
IMPLEMENT_DYNAMIC(KBT_Hebrew, CKBLayout)
IMPLEMENT_DYNAMIC(KBT_Persian, CKBLayout)
IMPLEMENT_DYNAMIC(KBT_Tamil, CKBLayout)
IMPLEMENT_DYNAMIC(KBT_Urdu, CKBLayout)
IMPLEMENT_DYNAMIC(KBT_UrduIndian, CKBLayout)

KBT_Arabic::KBT_Arabic() : TableKeyboard("Arabic (Internal)", 1025, 1256, arabic) {}
KBT_Assamme::KBT_Assamme() : TableKeyboard("Assamese", 514, 0, assamese) {}
KBT_Bengali::KBT_Bengali() : TableKeyboard("Bengali (Internal)", 514, 0, bengali) {}
KBT_BengaliInscript::KBT_BengaliInscript() : TableKeyboard("Bengali Inscript", 514, 0, bengaliInscript) {}
KBT_Hebrew::KBT_Hebrew() : TableKeyboard("Hebrew (Internal)", 1037, 0, hebrew) {}
KBT_Persian::KBT_Persian() : TableKeyboard("Persian (Internal)", 516, 0, persian) {}
KBT_Tamil::KBT_Tamil() : TableKeyboard("Tamil", 517, 0, tamil) {}
KBT_Urdu::KBT_Urdu() : TableKeyboard("Urdu (Internal)", 1056, 0, urdu, CtrlRule::typesWithShift) {}
KBT_UrduIndian::KBT_UrduIndian() : TableKeyboard("Indic Urdu", 1056, 0, urduIndian, CtrlRule::typesWithShift)
{
}

int TableKeyboard::TranslateKey(MSG* message)
{
    const bool shift = isKeyDown(VK_SHIFT), ctrl = isKeyDown(VK_CONTROL);
    if (!message || isKeyDown(VK_MENU)) return 0;
    if (ctrl && !(shift && m_ctrl == CtrlRule::typesWithShift)) return 0;
    const KeyState state = ctrl ? KeyState::ctrlShift : shift ? KeyState::shift : KeyState::plain;
    const auto characters = m_table.Find(message->wParam, state);
    if (!characters) return 0;
    for (const char16_t character : *characters) SendCharacter(*message, character);
    return 1;
}
