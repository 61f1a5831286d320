// The keyboards of CUnicodeManager.
#include "corekit/unicode/ui/keyboards/KeyboardRotation.h"
#include "corekit/unicode/ui/keyboards/PlatformLayouts.h"
#include "corekit/unicode/ui/UnicodeManager.h"

using namespace corekit::detail;

int CUnicodeManager::GetKeyboardCount() const { return m_keyboards->Count(); }

CKBLayout* CUnicodeManager::GetKeyboard(int index) const { return m_keyboards->At(index); }

void CUnicodeManager::GetKeyboardInfo(int index, CString& name, WORD& locale) const
{
    const CKBLayout* const keyboard = GetKeyboard(index);
    if (!keyboard) return;
    name = keyboard->GetName();
    locale = keyboard->GetLocale();
}

int CUnicodeManager::GetActiveKeyboard() const { return m_keyboards->ActiveIndex(); }

CString CUnicodeManager::GetActiveKeyboardName() const
{
    const CKBLayout* const keyboard = m_keyboards->Active();
    return keyboard ? keyboard->GetName() : CString();
}

WORD CUnicodeManager::GetCurrentKeyboardLocale() const
{
    const CKBLayout* const keyboard = m_keyboards->Active();
    return keyboard ? keyboard->GetLocale() : WORD{0};
}

void CUnicodeManager::EnableKeyboardSwitching(BOOL enabled) { m_keyboards->EnableSwitching(enabled); }

BOOL CUnicodeManager::IsKeyboardSwitchingEnabled() const { return m_keyboards->IsSwitchingEnabled(); }

bool CUnicodeManager::ActivateLayoutCore(int index) { return m_keyboards->HandOver(index); }

bool CUnicodeManager::ActivateKeyboard(int index, BOOL useDefault)
{
    return m_keyboards->Activate(useDefault ? m_keyboards->Default() : index);
}

bool CUnicodeManager::ActivateNextKeyboard() { return m_keyboards->StepForward(); }

bool CUnicodeManager::ActivatePrevKeyboard() { return m_keyboards->StepBack(); }

bool CUnicodeManager::SetKeyboardFromLocale(WORD locale, BOOL useDefault)
{
    const int found = m_keyboards->Find(locale);
    return found >= 0 && ActivateKeyboard(found, useDefault);
}

void CUnicodeManager::SetDefaultKeyboard(DWORD locale) { m_keyboards->SetDefault(locale); }

void CUnicodeManager::ActivateHelperKeyboard(DWORD locale) { activateLayoutOf(locale); }

BOOL CUnicodeManager::HandleInputLangChange(UINT, HKL layout)
{
    m_keyboards->Follow(layout);
    return TRUE;
}

bool CUnicodeManager::AllowInputLangChangeRequest(HKL layout, BOOL) const
{
    return m_keyboards->IndexOf(layout) >= 0;
}

CString CUnicodeManager::GetKeyboardLanguageName(HKL layout) { return languageName(layout); }

int CUnicodeManager::GetLayoutCodePage(HKL layout) { return codePageOf(layout); }
