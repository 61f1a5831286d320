#include "corekit/platform/Errors.h"
#include "corekit/platform/Keyboard.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

constexpr int keyCount = 256;
constexpr BYTE downBit = 0x80, toggleBit = 1;

thread_local constinit std::array<BYTE, keyCount> keys{};

// A key that stands for two: down while either is.
struct KeyPair {
    int either, left, right;
};
constexpr KeyPair pairs[] = {
    {VK_SHIFT, VK_LSHIFT, VK_RSHIFT},
    {VK_CONTROL, VK_LCONTROL, VK_RCONTROL},
    {VK_MENU, VK_LMENU, VK_RMENU},
};

BYTE& KeyAt(int key) { return keys[static_cast<std::size_t>(key)]; }

void Press(int key)
{
    if (!(KeyAt(key) & downBit)) KeyAt(key) ^= toggleBit; // a key that repeats has been pressed once
    KeyAt(key) |= downBit;
}
void Release(int key) { KeyAt(key) &= static_cast<BYTE>(~downBit); }

struct LegendKey {
    UINT key;
    char plain, shifted;
};
constexpr LegendKey legends[] = {
    {'0', '0', ')'},           {'1', '1', '!'},          {'2', '2', '@'},           {'3', '3', '#'},
    {'4', '4', '$'},           {'5', '5', '%'},          {'6', '6', '^'},           {'7', '7', '&'},
    {'8', '8', '*'},           {'9', '9', '('},          {VK_OEM_1, ';', ':'},      {VK_OEM_PLUS, '=', '+'},
    {VK_OEM_COMMA, ',', '<'},  {VK_OEM_MINUS, '-', '_'}, {VK_OEM_PERIOD, '.', '>'}, {VK_OEM_2, '/', '?'},
    {VK_OEM_3, '`', '~'},      {VK_OEM_4, '[', '{'},     {VK_OEM_5, '\\', '|'},     {VK_OEM_6, ']', '}'},
    {VK_OEM_7, '\'', '"'},     {0xE2, '\\', '|'},        {0x6A, '*', '*'},          {0x6B, '+', '+'},
    {0x6D, '-', '-'},          {0x6E, '.', '.'},         {0x6F, '/', '/'},          {VK_SPACE, ' ', ' '},
    {VK_BACK, '\b', '\b'},     {0x09, '\t', '\t'},       {VK_RETURN, '\r', '\r'},   {0x1B, '\x1B', '\x1B'},
};

char LetterOf(UINT key, bool capital)
{
    return static_cast<char>(capital ? key : key - 'A' + 'a');
}

// The character of a key, 0 for one that types none.
char CharacterOf(UINT key, const BYTE* state)
{
    const auto down = [state](int held) { return (state[held] & downBit) != 0; };
    const bool shift = down(VK_SHIFT), ctrl = down(VK_CONTROL), alt = down(VK_MENU);
    if (alt) return 0;
    const bool letter = key >= 'A' && key <= 'Z';
    if (ctrl) return letter ? static_cast<char>(key - 'A' + 1) : '\0';
    if (letter) return LetterOf(key, shift != ((state[VK_CAPITAL] & toggleBit) != 0));
    if (key >= VK_NUMPAD0 && key <= VK_NUMPAD0 + 9) return static_cast<char>('0' + (key - VK_NUMPAD0));
    const auto* const legend = std::ranges::find(legends, key, &LegendKey::key);
    return legend == std::end(legends) ? '\0' : shift ? legend->shifted : legend->plain;
}

} // namespace

SHORT GetKeyState(int virtualKey)
{
    if (virtualKey < 0 || virtualKey >= keyCount) return 0;
    const BYTE state = KeyAt(virtualKey);
    return static_cast<SHORT>((state & downBit) << 8 | (state & toggleBit));
}

BOOL GetKeyboardState(BYTE* state)
{
    if (!state) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    std::ranges::copy(keys, state);
    return TRUE;
}

BOOL SetKeyboardState(const BYTE* state)
{
    if (!state) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    std::copy_n(state, keyCount, keys.begin());
    return TRUE;
}

void RecordKeyMotion(int virtualKey, KeyMotion motion)
{
    if (virtualKey < 0 || virtualKey >= keyCount) return;
    motion == KeyMotion::down ? Press(virtualKey) : Release(virtualKey);
    for (const KeyPair& pair : pairs) {
        if (virtualKey != pair.left && virtualKey != pair.right) continue;
        (KeyAt(pair.left) | KeyAt(pair.right)) & downBit ? Press(pair.either) : Release(pair.either);
    }
}

int ToUnicode(UINT virtualKey, UINT, const BYTE* state, WCHAR* text, int size, UINT)
{
    if (!state || !text || size < 1) return 0;
    const char character = CharacterOf(virtualKey, state);
    if (character == 0) return 0;
    *text = static_cast<unsigned char>(character);
    return 1;
}
