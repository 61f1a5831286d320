#include "corekit/platform/qt/windows/KeyCodes.h"

#include "corekit/platform/Keyboard.h"

#include <QKeyEvent>

#include <algorithm>
#include <iterator>

namespace corekit::detail {
namespace {

struct NamedKey {
    int toolkitKey, virtualKey;
    bool isExtended;
};
constexpr NamedKey namedKeys[] = {
    {Qt::Key_Backspace, VK_BACK, false},
    {Qt::Key_Tab, 0x09, false},
    {Qt::Key_Backtab, 0x09, false},
    {Qt::Key_Return, VK_RETURN, false},
    {Qt::Key_Enter, VK_RETURN, true},
    {Qt::Key_Escape, 0x1B, false},
    {Qt::Key_Space, VK_SPACE, false},
    {Qt::Key_PageUp, 0x21, true},
    {Qt::Key_PageDown, 0x22, true},
    {Qt::Key_End, 0x23, true},
    {Qt::Key_Home, 0x24, true},
    {Qt::Key_Left, VK_LEFT, true},
    {Qt::Key_Up, 0x26, true},
    {Qt::Key_Right, VK_RIGHT, true},
    {Qt::Key_Down, 0x28, true},
    {Qt::Key_Print, 0x2C, true},
    {Qt::Key_Insert, 0x2D, true},
    {Qt::Key_Delete, 0x2E, true},
    {Qt::Key_Help, 0x2F, false},
    {Qt::Key_Meta, 0x5B, true},
    {Qt::Key_Super_L, 0x5B, true},
    {Qt::Key_Super_R, 0x5C, true},
    {Qt::Key_Menu, 0x5D, true},
    {Qt::Key_Shift, VK_SHIFT, false},
    {Qt::Key_Control, VK_CONTROL, false},
    {Qt::Key_Alt, VK_MENU, false},
    {Qt::Key_AltGr, VK_MENU, true},
    {Qt::Key_CapsLock, VK_CAPITAL, false},
    {Qt::Key_NumLock, 0x90, true},
    {Qt::Key_ScrollLock, 0x91, false},
    {Qt::Key_Pause, 0x13, false},
    {Qt::Key_Clear, 0x0C, false},
};

// Punctuation as a United States layout has it, plain and with Shift.
struct PrintedKey {
    char plain, shifted;
    int virtualKey;
};
constexpr PrintedKey printedKeys[] = {
    {';', ':', VK_OEM_1},      {'=', '+', VK_OEM_PLUS}, {',', '<', VK_OEM_COMMA}, {'-', '_', VK_OEM_MINUS},
    {'.', '>', VK_OEM_PERIOD}, {'/', '?', VK_OEM_2},    {'`', '~', VK_OEM_3},     {'[', '{', VK_OEM_4},
    {'\\', '|', VK_OEM_5},     {']', '}', VK_OEM_6},    {'\'', '"', VK_OEM_7},    {'1', '!', '1'},
    {'2', '@', '2'},           {'3', '#', '3'},         {'4', '$', '4'},          {'5', '%', '5'},
    {'6', '^', '6'},           {'7', '&', '7'},         {'8', '*', '8'},          {'9', '(', '9'},
    {'0', ')', '0'},
};

// Virtual keys by place: the scan codes 0x02 to 0x35 and 0x56, which X servers count 8 higher.
constexpr BYTE placedKeys[] = {
    '1', '2',  '3',  '4',  '5', '6',  '7',  '8',  '9', '0', 0xBD, 0xBB, 0,   0,    'Q',  'W',  'E', 'R',
    'T', 'Y',  'U',  'I',  'O', 'P',  0xDB, 0xDD, 0,   0,   'A',  'S',  'D', 'F',  'G',  'H',  'J', 'K',
    'L', 0xBA, 0xDE, 0xC0, 0,   0xDC, 'Z',  'X',  'C', 'V', 'B',  'N',  'M', 0xBC, 0xBE, 0xBF,
};
constexpr quint32 firstPlaced = 0x02, serverShift = 8;

int byPlace(const QKeyEvent& event)
{
    const quint32 scan = event.nativeScanCode();
    if (scan < firstPlaced + serverShift) return 0;
    const quint32 index = scan - serverShift - firstPlaced;
    if (scan - serverShift == 0x56) return 0xE2;
    return index < std::size(placedKeys) ? placedKeys[index] : 0;
}

int byPrint(int key)
{
    if (key >= Qt::Key_A && key <= Qt::Key_Z) return key;
    for (const PrintedKey& printed : printedKeys)
        if (key == printed.plain || key == printed.shifted) return printed.virtualKey;
    return 0;
}

int onKeypad(int key)
{
    switch (key) {
    case Qt::Key_Asterisk:
        return 0x6A;
    case Qt::Key_Plus:
        return 0x6B;
    case Qt::Key_Minus:
        return 0x6D;
    case Qt::Key_Period:
    case Qt::Key_Comma:
        return 0x6E;
    case Qt::Key_Slash:
        return 0x6F;
    default:
        return key >= Qt::Key_0 && key <= Qt::Key_9 ? VK_NUMPAD0 + key - Qt::Key_0 : 0;
    }
}

int sidedKey(int virtualKey, quint32 scan)
{
    switch (virtualKey) {
    case VK_SHIFT:
        return scan == 62 ? VK_RSHIFT : VK_LSHIFT;
    case VK_CONTROL:
        return scan == 105 ? VK_RCONTROL : VK_LCONTROL;
    case VK_MENU:
        return scan == 108 ? VK_RMENU : VK_LMENU;
    default:
        return virtualKey;
    }
}

} // namespace

PressedKey pressedKeyOf(const QKeyEvent& event)
{
    const int key = event.key();
    const bool isKeypad = event.modifiers() & Qt::KeypadModifier;
    for (const NamedKey& named : namedKeys) {
        if (named.toolkitKey != key) continue;
        const int sided =
            key == Qt::Key_AltGr ? VK_RMENU : sidedKey(named.virtualKey, event.nativeScanCode());
        const bool isExtended = (named.isExtended && (!isKeypad || key == Qt::Key_Enter)) ||
                                sided == VK_RCONTROL || sided == VK_RMENU;
        return {named.virtualKey, sided, isExtended};
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return {0x70 + key - Qt::Key_F1, 0x70 + key - Qt::Key_F1, false};
    int found = isKeypad ? onKeypad(key) : 0;
    const bool isCommand = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    if (!found && isCommand) found = byPrint(key);
    if (!found) found = byPlace(event);
    if (!found) found = byPrint(key);
    return {found, found, isKeypad && key == Qt::Key_Slash};
}

int toolkitKeyOf(int virtualKey)
{
    if ((virtualKey >= 'A' && virtualKey <= 'Z') || (virtualKey >= '0' && virtualKey <= '9'))
        return virtualKey;
    if (virtualKey >= 0x70 && virtualKey <= 0x87) return Qt::Key_F1 + virtualKey - 0x70;
    for (const NamedKey& named : namedKeys)
        if (named.virtualKey == virtualKey) return named.toolkitKey;
    for (const PrintedKey& printed : printedKeys)
        if (printed.virtualKey == virtualKey) return printed.plain;
    return 0;
}

} // namespace corekit::detail
