#include "corekit/unicode/ui/keyboards/KBLayout.h"

#include "corekit/unicode/ui/keyboards/PlatformLayouts.h"

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(CKBLayout, CObject)

CKBLayout::CKBLayout(const char* name, WORD locale, int codePage)
    : m_name(name), m_locale(locale), m_codePage(codePage)
{
}

CKBLayout::CKBLayout(HKL layout)
    : m_name(languageName(layout)), m_locale(languageOf(layout)), m_codePage(codePageOf(layout))
{
}

void CKBLayout::ActivateHelper(DWORD locale) { activateLayoutOf(locale); }

void CKBLayout::SendCharacter(MSG& message, WCHAR character)
{
    message.message = WM_CHAR;
    message.wParam = character | finalCharacterMark;
    DispatchMessageA(&message);
}
