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

BYTE& keyAt(int key) { return keys[static_cast<std::size_t>(key)]; }

void press(int key)
{
    if (!(keyAt(key) & downBit)) keyAt(key) ^= toggleBit; // a key that repeats has been pressed once
    keyAt(key) |= downBit;
}
void release(int key) { keyAt(key) &= static_cast<BYTE>(~downBit); }

} // namespace

SHORT GetKeyState(int virtualKey)
{
    if (virtualKey < 0 || virtualKey >= keyCount) return 0;
    const BYTE state = keyAt(virtualKey);
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
    motion == KeyMotion::down ? press(virtualKey) : release(virtualKey);
    for (const KeyPair& pair : pairs) {
        if (virtualKey != pair.left && virtualKey != pair.right) continue;
        (keyAt(pair.left) | keyAt(pair.right)) & downBit ? press(pair.either) : release(pair.either);
    }
}
