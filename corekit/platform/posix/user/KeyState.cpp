#include "corekit/platform/Errors.h"
#include "corekit/platform/Keyboard.h"

#include <algorithm>
#include <array>

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
