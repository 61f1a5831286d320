#include "corekit/unicode/ui/keyboards/KBT_Devanagari.h"

#include "corekit/unicode/ui/keyboards/HeldKeys.h"
#include "corekit/unicode/ui/keyboards/layouts/Devanagari.h"

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(KBT_Devanagari, CKBLayout)

namespace {

constinit bool afterConsonant = false;

bool lies(char16_t c, char16_t first, char16_t last) { return c >= first && c <= last; }

// Whether a vowel key types a sign once `c` has been typed.
bool takesSign(char16_t c)
{
    constexpr char16_t candrabindu = 0x0901, anusvara = 0x0902, letterA = 0x0905, nukta = 0x093C;
    constexpr char16_t virama = 0x094D, danda = 0x0964;
    switch (c) {
    case candrabindu:
    case anusvara:
    case letterA:
    case nukta:
    case virama:
        return afterConsonant;
    case danda:
        return true;
    default: // letters, those with a nukta, and the private conjuncts
        return lies(c, 0x0915, 0x0939) || lies(c, 0x0958, 0x095F) || lies(c, 0x097A, 0x097F);
    }
}

std::optional<std::u16string_view> findTyped(WPARAM key, KeyState state)
{
    if (afterConsonant)
        if (const auto other = devanagariAfterConsonant.Find(key, state)) return other;
    return devanagari.Find(key, state);
}

WPARAM exchanged(WPARAM key) { return key == VK_OEM_3 ? VK_OEM_7 : key == VK_OEM_7 ? VK_OEM_3 : key; }

} // namespace

KBT_Devanagari::KBT_Devanagari(int alternate)
    : CKBLayout(alternate ? "Devanagari - Alt 1 (Internal)" : "Devanagari - Std (Internal)", 513, 0),
      m_alternate(alternate ? 1 : 0)
{
}

int KBT_Devanagari::TranslateKey(MSG* message)
{
    if (!message || isKeyDown(VK_CONTROL) || isKeyDown(VK_MENU)) return 0;
    const WPARAM pressed = message->wParam;
    if (pressed == VK_SHIFT || pressed == VK_CONTROL || pressed == VK_MENU) return 0;
    const WPARAM key = m_alternate ? exchanged(pressed) : pressed;
    const KeyState state = isKeyDown(VK_SHIFT) ? KeyState::shift : KeyState::plain;
    const auto typed = key == 'Y' && m_alternate ? devanagari.Find(key, state) : findTyped(key, state);
    if (!typed) {
        afterConsonant = false;
        return 0;
    }
    const char16_t character = typed->front();
    if (key == 'Y') // the second letter of a pair takes no sign
        afterConsonant = m_alternate ? state == KeyState::plain : !afterConsonant;
    else
        afterConsonant = takesSign(character);
    SendCharacter(*message, character);
    return 1;
}
