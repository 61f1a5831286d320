// The keyboards of CUnicodeManager and which of them is active.
#include "corekit/platform/KeyboardLayouts.h"
#include "corekit/platform/Locale.h"
#include "corekit/unicode/ui/keyboards/KBT_Devanagari.h"
#include "corekit/unicode/ui/keyboards/KBT_Welsh.h"
#include "corekit/unicode/ui/keyboards/SystemKeyboard.h"
#include "corekit/unicode/ui/keyboards/TableKeyboard.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <cstdlib>
#include <memory>
#include <utility>
#include <vector>

using namespace corekit::detail;

namespace {

constexpr int greatestLayouts = 1024;
constexpr WORD portugueseOfBrazil = 0x416, thai = 0x41E;
constexpr DWORD languageBits = 0x3FF; // the others tell varieties apart

WORD languageOf(HKL layout) { return LOWORD(reinterpret_cast<UINT_PTR>(layout)); }

bool sameLanguage(DWORD a, DWORD b) { return (a & languageBits) == (b & languageBits); }

template <class Keyboard, class... Arguments>
void add(CArray<CKBLayout*, CKBLayout*>& keyboards, Arguments&&... arguments)
{
    auto keyboard = std::make_unique<Keyboard>(std::forward<Arguments>(arguments)...);
    keyboards.Add(keyboard.get());
    keyboard.release();
}

} // namespace

void CUnicodeManager::InitSystemKB(HKL layout)
{
    switch (languageOf(layout)) {
    case portugueseOfBrazil:
        return add<KBT_PortugueseExtension>(m_keyboards, layout);
    case thai:
        return add<KBT_ThaiExtension>(m_keyboards, layout);
    default:
        return add<CSystemKeyboard>(m_keyboards, layout);
    }
}

void CUnicodeManager::InitKeyboards()
{
    std::vector<HKL> layouts(greatestLayouts);
    layouts.resize(static_cast<std::size_t>(GetKeyboardLayoutList(greatestLayouts, layouts.data())));
    for (const HKL layout : layouts) InitSystemKB(layout);
    add<KBT_Devanagari>(m_keyboards, 0);
    add<KBT_Devanagari>(m_keyboards, 1);
    add<KBT_Bengali>(m_keyboards);
    add<KBT_Persian>(m_keyboards);
    add<KBT_Arabic>(m_keyboards);
    add<KBT_Urdu>(m_keyboards);
    add<KBT_UrduIndian>(m_keyboards);
    add<KBT_Hebrew>(m_keyboards);
    add<KBT_Welsh>(m_keyboards);
    add<KBT_Tamil>(m_keyboards);
    add<KBT_BengaliInscript>(m_keyboards);
    add<KBT_Assamme>(m_keyboards);

    const HKL active = GetKeyboardLayout(0);
    m_activeKeyboard = 0;
    for (const HKL layout : layouts) {
        if (layout == active) break;
        ++m_activeKeyboard;
    }
    m_activeCodePage = GetLayoutCodePage(active);
}

CKBLayout* CUnicodeManager::GetKeyboard(int index) const
{
    return index >= 0 && index < GetKeyboardCount() ? m_keyboards.GetAt(index) : nullptr;
}

void CUnicodeManager::GetKeyboardInfo(int index, CString& name, WORD& locale) const
{
    const CKBLayout* const keyboard = GetKeyboard(index);
    if (!keyboard) return;
    name = keyboard->GetName();
    locale = keyboard->GetLocale();
}

CString CUnicodeManager::GetActiveKeyboardName() const
{
    const CKBLayout* const keyboard = GetKeyboard(m_activeKeyboard);
    return keyboard ? keyboard->GetName() : CString();
}

WORD CUnicodeManager::GetCurrentKeyboardLocale() const
{
    const CKBLayout* const keyboard = GetKeyboard(m_activeKeyboard);
    return keyboard ? keyboard->GetLocale() : WORD{0};
}

bool CUnicodeManager::ActivateLayoutCore(int index)
{
    if (index == m_activeKeyboard) return true;
    CKBLayout* const keyboard = GetKeyboard(index);
    if (!keyboard) return false;
    m_changingKeyboard = TRUE;
    if (CKBLayout* const before = GetKeyboard(m_activeKeyboard)) before->Deactivate();
    keyboard->Activate();
    m_activeCodePage = keyboard->GetCodePage();
    m_changingKeyboard = FALSE;
    return true;
}

bool CUnicodeManager::SwitchTo(int index)
{
    if (!ActivateLayoutCore(index)) return false;
    m_activeKeyboard = index;
    return true;
}

bool CUnicodeManager::ActivateKeyboard(int index, BOOL useDefault)
{
    if (!m_keyboardSwitching) return true;
    const int target = useDefault ? m_defaultKeyboard : index;
    const CKBLayout* const keyboard = GetKeyboard(target);
    return keyboard && keyboard->IsEnabled() && SwitchTo(target);
}

// `step` is 1, or one less than the count for the way back.
bool CUnicodeManager::StepKeyboard(int step)
{
    const int count = GetKeyboardCount();
    if (!m_keyboardSwitching || count == 0) return true;
    int i = m_activeKeyboard;
    do {
        i = (i + step) % count;
    } while (i != m_activeKeyboard && !GetKeyboard(i)->IsEnabled());
    return i == m_activeKeyboard || SwitchTo(i);
}

bool CUnicodeManager::ActivateNextKeyboard() { return StepKeyboard(1); }

bool CUnicodeManager::ActivatePrevKeyboard() { return StepKeyboard(GetKeyboardCount() - 1); }

bool CUnicodeManager::SetKeyboardFromLocale(WORD locale, BOOL useDefault)
{
    int found = -1;
    for (int i = 0; i < GetKeyboardCount(); ++i) {
        const CKBLayout* const keyboard = GetKeyboard(i);
        if (!keyboard->IsEnabled()) continue;
        if (keyboard->GetLocale() == locale) return ActivateKeyboard(i, useDefault);
        if (found < 0 && sameLanguage(keyboard->GetLocale(), locale)) found = i;
    }
    return found >= 0 && ActivateKeyboard(found, useDefault);
}

void CUnicodeManager::SetDefaultKeyboard(DWORD locale)
{
    const int count = GetKeyboardCount();
    for (m_defaultKeyboard = 0; m_defaultKeyboard < count; ++m_defaultKeyboard) {
        const CKBLayout* const keyboard = GetKeyboard(m_defaultKeyboard);
        if (keyboard->IsEnabled() && sameLanguage(keyboard->GetLocale(), locale)) return;
    }
}

// A keyboard of our own has no layout of the platform, and so stands for leaving it alone.
void CUnicodeManager::ActivateHelperKeyboard(DWORD locale)
{
    HKL layout = nullptr;
    for (int i = 0; i < GetKeyboardCount() && locale != 0 && !layout; ++i)
        if (const HKL own = GetKeyboard(i)->GetLayoutHandle(); own && languageOf(own) == LOWORD(locale))
            layout = own;
    ActivateKeyboardLayout(layout, 0);
}

int CUnicodeManager::FindLayout(HKL layout) const
{
    for (int i = 0; i < GetKeyboardCount(); ++i)
        if (GetKeyboard(i)->GetLayoutHandle() == layout) return i;
    return -1;
}

BOOL CUnicodeManager::HandleInputLangChange(UINT, HKL layout)
{
    if (m_changingKeyboard) return TRUE;
    const int found = FindLayout(layout);
    if (found < 0 || found == m_activeKeyboard) return TRUE;
    if (CKBLayout* const before = GetKeyboard(m_activeKeyboard)) before->Deactivate();
    m_activeKeyboard = found;
    m_activeCodePage = GetKeyboard(found)->GetCodePage();
    return TRUE;
}

bool CUnicodeManager::AllowInputLangChangeRequest(HKL layout, BOOL) const { return FindLayout(layout) >= 0; }

CString CUnicodeManager::GetKeyboardLanguageName(HKL layout)
{
    char name[256];
    return GetLocaleInfoA(languageOf(layout), LOCALE_SENGLANGUAGE, name, sizeof name) ? CString(name)
                                                                                      : CString();
}

int CUnicodeManager::GetLayoutCodePage(HKL layout)
{
    char number[64];
    return GetLocaleInfoA(languageOf(layout), LOCALE_IDEFAULTANSICODEPAGE, number, sizeof number)
               ? std::atoi(number)
               : 0;
}
