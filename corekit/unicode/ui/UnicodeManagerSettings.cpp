// The settings of CUnicodeManager.
#include "corekit/unicode/ui/keyboards/KeyboardRotation.h"
#include "corekit/unicode/ui/SupportKey.h"
#include "corekit/unicode/ui/TextSettings.h"
#include "corekit/unicode/ui/UnicodeManager.h"

using namespace corekit::detail;

void CUnicodeManager::LoadRegistryConfig()
{
    CRegistryKey key;
    openForReading(key, supportKey);
    m_settings->Load(key);
    m_keyboards->Load(key);
}

void CUnicodeManager::SaveEnabledKeyboardsConfig() const { m_keyboards->SaveEnabled(); }

void CUnicodeManager::SetControlsFontDescriptor(const CFontDescriptor& font)
{
    m_settings->SetControlsFont(font);
}

void CUnicodeManager::GetControlsFontDescriptor(CFontDescriptor& font) { font = m_settings->ControlsFont(); }

void CUnicodeManager::OverrideControlsFont(const CFontDescriptor& font)
{
    m_settings->OverrideControlsFont(font);
}

void CUnicodeManager::OverrideSettings(const Settings& settings) { m_settings->Override(settings); }

BOOL CUnicodeManager::IsBIDIEnabled(BOOL forGlyphs) const
{
    const Settings& settings = m_settings->Handling();
    return forGlyphs && settings.complexLanguage ? FALSE : settings.biDi;
}

BOOL CUnicodeManager::WindowsComplexLanguageHandlingEnabled() const
{
    return m_settings->Handling().complexLanguage;
}

BOOL CUnicodeManager::ExtraLineHeight() const { return m_settings->Handling().extraLineHeight; }

BOOL CUnicodeManager::IsUnderlineSelectEnabled() const { return m_settings->Handling().underlineSelect; }

void CUnicodeManager::SetBIDIEnabled(BOOL enabled) { m_settings->Set(&Settings::biDi, enabled); }

void CUnicodeManager::SetWindowsComplexLanguageHandling(BOOL enabled)
{
    m_settings->Set(&Settings::complexLanguage, enabled);
}

void CUnicodeManager::SetExtraLineHeight(BOOL enabled)
{
    m_settings->Set(&Settings::extraLineHeight, enabled);
}

void CUnicodeManager::SetUnderlineSelectEnabled(BOOL enabled)
{
    m_settings->Set(&Settings::underlineSelect, enabled);
}
