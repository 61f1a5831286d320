#include "corekit/unicode/ui/TextSettings.h"

#include "corekit/unicode/ui/FontRegistry.h"
#include "corekit/unicode/ui/SupportKey.h"

#include <algorithm>

namespace corekit::detail {

namespace {

constexpr const char* controlsFontName = "Controls Font";
constexpr int usualControlsSize = 15;

struct Row {
    BOOL TextHandling::*flag;
    const char* name;
};
constexpr Row rows[] = {
    {&TextHandling::biDi, "BI-DI Supported"},
    {&TextHandling::complexLanguage, "Windows Complex Language Enabled"},
    {&TextHandling::extraLineHeight, "Extra Line Height"},
    {&TextHandling::underlineSelect, "Underline Select"},
};

} // namespace

void TextSettings::Set(BOOL TextHandling::*flag, BOOL value)
{
    m_handling.*flag = value;
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, supportKey);
    key.SetValue(std::ranges::find(rows, flag, &Row::flag)->name, value);
}

const CFontDescriptor& TextSettings::ControlsFont()
{
    if (m_controlsFont.GetCount() == 0) {
        CRegistryKey key;
        openForReading(key, supportKey);
        LoadControlsFont(key);
    }
    return m_controlsFont;
}

void TextSettings::SetControlsFont(const CFontDescriptor& font)
{
    m_controlsFont = font;
    CRegistryKey key;
    openForReading(key, supportKey);
    m_controlsFont.SaveToRegistry(key, controlsFontName);
}

void TextSettings::Load(CRegistryKey& support)
{
    LoadControlsFont(support);
    for (const auto& [flag, name] : rows) {
        int value = 0;
        m_handling.*flag = support.GetValue(name, value) ? value : FALSE;
    }
}

void TextSettings::LoadControlsFont(CRegistryKey& support)
{
    if (m_controlsFont.LoadFromRegistry(support, controlsFontName)) return;
    m_controlsFont.Empty();
    m_controlsFont.SetSize(usualControlsSize);
    m_controlsFont.AddFont(FontRegistry::usualFace);
}

} // namespace corekit::detail
