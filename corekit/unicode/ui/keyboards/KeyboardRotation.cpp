#include "corekit/unicode/ui/keyboards/KeyboardRotation.h"

#include "corekit/platform/KeyboardLayouts.h"
#include "corekit/stores/RegistryText.h"
#include "corekit/unicode/ui/keyboards/PlatformLayouts.h"
#include "corekit/unicode/ui/SupportKey.h"

#include <algorithm>
#include <string>

namespace corekit::detail {

namespace {

constexpr const char* defaultLocaleName = "Default Locale";
constexpr DWORD languageBits = 0x3FF; // the others tell varieties apart

bool isSameLanguage(DWORD a, DWORD b) { return (a & languageBits) == (b & languageBits); }

} // namespace

void KeyboardRotation::Start()
{
    const std::vector<HKL> layouts = platformLayouts();
    const HKL active = GetKeyboardLayout(0);
    m_keyboards = makeKeyboards(layouts);
    m_active = static_cast<int>(std::ranges::find(layouts, active) - layouts.begin());
    m_codePage = codePageOf(active);
}

CKBLayout* KeyboardRotation::At(int index) const
{
    return index >= 0 && index < Count() ? m_keyboards[static_cast<std::size_t>(index)].get() : nullptr;
}

int KeyboardRotation::IndexOf(HKL layout) const
{
    const auto found = std::ranges::find(m_keyboards, layout, &CKBLayout::GetLayoutHandle);
    return found == m_keyboards.end() ? -1 : static_cast<int>(found - m_keyboards.begin());
}

bool KeyboardRotation::HandOver(int index)
{
    if (index == m_active) return true;
    CKBLayout* const keyboard = At(index);
    if (!keyboard) return false;
    m_isHandingOver = true;
    if (CKBLayout* const before = Active()) before->Deactivate();
    keyboard->Activate();
    m_codePage = keyboard->GetCodePage();
    m_isHandingOver = false;
    return true;
}

bool KeyboardRotation::SwitchTo(int index)
{
    if (!HandOver(index)) return false;
    m_active = index;
    return true;
}

bool KeyboardRotation::Activate(int index)
{
    if (!m_switching) return true;
    const CKBLayout* const keyboard = At(index);
    return keyboard && keyboard->IsEnabled() && SwitchTo(index);
}

// `step` is 1, or one less than the count for the way back.
bool KeyboardRotation::Step(int step)
{
    if (!m_switching || m_keyboards.empty()) return true;
    int i = m_active;
    do {
        i = (i + step) % Count();
    } while (i != m_active && !At(i)->IsEnabled());
    return i == m_active || SwitchTo(i);
}

int KeyboardRotation::Find(WORD locale) const
{
    int variety = -1;
    for (int i = 0; i < Count(); ++i) {
        const CKBLayout& keyboard = *At(i);
        if (!keyboard.IsEnabled()) continue;
        if (keyboard.GetLocale() == locale) return i;
        if (variety < 0 && isSameLanguage(keyboard.GetLocale(), locale)) variety = i;
    }
    return variety;
}

void KeyboardRotation::SetDefault(DWORD locale)
{
    const auto serves = [locale](const auto& keyboard) {
        return keyboard->IsEnabled() && isSameLanguage(keyboard->GetLocale(), locale);
    };
    m_default = static_cast<int>(std::ranges::find_if(m_keyboards, serves) - m_keyboards.begin());
}

void KeyboardRotation::Follow(HKL layout)
{
    if (m_isHandingOver) return;
    const int found = IndexOf(layout);
    if (found < 0 || found == m_active) return;
    if (CKBLayout* const before = Active()) before->Deactivate();
    m_active = found;
    m_codePage = At(found)->GetCodePage();
}

void KeyboardRotation::LoadEnabled()
{
    CRegistryKey key;
    openForReading(key, enabledKeyboardsKey);
    for (const std::string& name : RegistryValueNames(key)) {
        int enabled = 0;
        if (!key.GetValue(name.c_str(), enabled)) continue;
        for (const auto& keyboard : m_keyboards)
            if (keyboard->GetName() == name.c_str()) keyboard->SetEnabled(enabled);
    }
}

void KeyboardRotation::Load(const CRegistryKey& support)
{
    LoadEnabled();
    DWORD locale = 0;
    if (!support.GetValue(defaultLocaleName, locale)) return;
    SetDefault(locale);
    if (const int found = Find(LOWORD(locale)); found >= 0) SwitchTo(found);
}

void KeyboardRotation::SaveEnabled() const
{
    CRegistryKey key;
    key.Create(HKEY_LOCAL_MACHINE, enabledKeyboardsKey);
    for (const std::string& name : RegistryValueNames(key)) key.DeleteValue(name.c_str());
    for (const auto& keyboard : m_keyboards) key.SetValue(keyboard->GetName(), keyboard->IsEnabled());
}

} // namespace corekit::detail
