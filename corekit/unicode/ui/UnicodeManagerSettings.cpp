// The settings of CUnicodeManager and their place in the registry.
#include "corekit/framework/Exception.h"
#include "corekit/stores/RegistryKey.h"
#include "corekit/stores/RegistryText.h"
#include "corekit/unicode/ui/keyboards/KBLayout.h"
#include "corekit/unicode/ui/UnicodeManager.h"

namespace {

constexpr const char* supportKey = "Software\\Corvane\\Unicode Support";
constexpr const char* keyboardsKey = "Software\\Corvane\\Unicode Support\\Enabled Keyboards";

constexpr const char* controlsFontName = "Controls Font";
constexpr const char* biDiName = "BI-DI Supported";
constexpr const char* complexLanguageName = "Windows Complex Language Enabled";
constexpr const char* extraLineHeightName = "Extra Line Height";
constexpr const char* underlineSelectName = "Underline Select";
constexpr const char* defaultLocaleName = "Default Locale";

constexpr int defaultControlsSize = 15;

// Makes the key where it is missing. Where that cannot be, the settings are read as far as they are there, or
// have their defaults.
void openForReading(CRegistryKey& key, const char* path)
{
    try {
        key.Create(HKEY_LOCAL_MACHINE, path);
    } catch (CException* e) {
        e->Delete();
        key.Open(HKEY_LOCAL_MACHINE, path, KEY_READ);
    }
}

BOOL readFlag(const CRegistryKey& key, const char* name)
{
    int value = 0;
    return key.GetValue(name, value) ? value : FALSE;
}

void writeFlag(const char* name, BOOL value)
{
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, supportKey);
    key.SetValue(name, value);
}

} // namespace

void CUnicodeManager::LoadControlsFont(CRegistryKey& key)
{
    if (m_controlsFont.LoadFromRegistry(key, controlsFontName)) return;
    m_controlsFont.Empty();
    m_controlsFont.SetSize(defaultControlsSize);
    m_controlsFont.AddFont(defaultControlsFace);
}

void CUnicodeManager::SetControlsFontDescriptor(const CFontDescriptor& font)
{
    m_controlsFont = font;
    CRegistryKey key;
    openForReading(key, supportKey);
    m_controlsFont.SaveToRegistry(key, controlsFontName);
}

void CUnicodeManager::GetControlsFontDescriptor(CFontDescriptor& font)
{
    if (m_controlsFont.GetCount() == 0) {
        CRegistryKey key;
        openForReading(key, supportKey);
        LoadControlsFont(key);
    }
    font = m_controlsFont;
}

void CUnicodeManager::LoadRegistryConfig()
{
    CRegistryKey key, keyboards;
    openForReading(key, supportKey);
    LoadControlsFont(key);
    m_settings = {readFlag(key, biDiName), readFlag(key, complexLanguageName),
                  readFlag(key, extraLineHeightName), readFlag(key, underlineSelectName)};

    openForReading(keyboards, keyboardsKey);
    for (const std::string& name : RegistryValueNames(keyboards)) {
        int enabled = 0;
        if (!keyboards.GetValue(name.c_str(), enabled)) continue;
        for (int i = 0; i < GetKeyboardCount(); ++i)
            if (GetKeyboard(i)->GetName() == name.c_str()) GetKeyboard(i)->SetEnabled(enabled);
    }

    DWORD locale = 0;
    if (!key.GetValue(defaultLocaleName, locale)) return;
    SetDefaultKeyboard(locale);
    const BOOL switching = m_keyboardSwitching;
    m_keyboardSwitching = TRUE;
    SetKeyboardFromLocale(LOWORD(locale), FALSE);
    m_keyboardSwitching = switching;
}

void CUnicodeManager::SaveEnabledKeyboardsConfig() const
{
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, keyboardsKey);
    for (const std::string& name : RegistryValueNames(key)) key.DeleteValue(name.c_str());
    for (int i = 0; i < GetKeyboardCount(); ++i)
        key.SetValue(GetKeyboard(i)->GetName(), GetKeyboard(i)->IsEnabled());
}

BOOL CUnicodeManager::IsBIDIEnabled(BOOL forGlyphs) const
{
    return forGlyphs && m_settings.complexLanguage ? FALSE : m_settings.biDi;
}

void CUnicodeManager::SetBIDIEnabled(BOOL enabled)
{
    m_settings.biDi = enabled;
    writeFlag(biDiName, enabled);
}

void CUnicodeManager::SetWindowsComplexLanguageHandling(BOOL enabled)
{
    m_settings.complexLanguage = enabled;
    writeFlag(complexLanguageName, enabled);
}

void CUnicodeManager::SetExtraLineHeight(BOOL enabled)
{
    m_settings.extraLineHeight = enabled;
    writeFlag(extraLineHeightName, enabled);
}

void CUnicodeManager::SetUnderlineSelectEnabled(BOOL enabled)
{
    m_settings.underlineSelect = enabled;
    writeFlag(underlineSelectName, enabled);
}
