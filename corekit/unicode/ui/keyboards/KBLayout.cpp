#include "corekit/unicode/ui/keyboards/KBLayout.h"

#include "corekit/platform/Locale.h"

#include <cstdlib>

IMPLEMENT_DYNAMIC(CKBLayout, CObject)

namespace {

WORD LanguageOf(HKL layout) { return LOWORD(reinterpret_cast<DWORD_PTR>(layout)); }

// The text that the platform has for a language, empty if none.
template <int size>
CString LocaleText(WORD locale, DWORD type)
{
    char text[size] = {};
    return GetLocaleInfoA(locale, type, text, size) > 0 ? CString(text) : CString();
}

} // namespace

CKBLayout::CKBLayout(const char* name, WORD locale, int codePage)
    : m_name(name), m_locale(locale), m_codePage(codePage)
{
}

CKBLayout::CKBLayout(HKL layout)
    : m_name(LocaleText<256>(LanguageOf(layout), LOCALE_SENGLANGUAGE)), m_locale(LanguageOf(layout)),
      m_codePage(std::atoi(LocaleText<64>(LanguageOf(layout), LOCALE_IDEFAULTANSICODEPAGE)))
{
}

void CKBLayout::SendCharacter(MSG& message, WCHAR character)
{
    message.message = WM_CHAR;
    message.wParam = character | finalCharacterMark;
    DispatchMessageA(&message);
}
