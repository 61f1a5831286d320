// Keys and composed text become messages.
#include "corekit/platform/Input.h"
#include "corekit/platform/qt/windows/ApplicationFilter.h"
#include "corekit/platform/qt/windows/Composition.h"
#include "corekit/platform/qt/windows/KeyCodes.h"
#include "corekit/platform/qt/windows/LayoutChanges.h"
#include "corekit/platform/qt/windows/WindowTables.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>

namespace corekit::detail {

void followHeldKeys(Qt::KeyboardModifiers held, int except)
{
    struct Pair {
        Qt::KeyboardModifier bit;
        int either, left, right;
    };
    static constexpr Pair pairs[] = {{Qt::ShiftModifier, VK_SHIFT, VK_LSHIFT, VK_RSHIFT},
                                     {Qt::ControlModifier, VK_CONTROL, VK_LCONTROL, VK_RCONTROL},
                                     {Qt::AltModifier, VK_MENU, VK_LMENU, VK_RMENU}};
    const bool isGraph =
        GetKeyState(VK_RMENU) < 0 && GetKeyState(VK_LCONTROL) < 0 && !(held & Qt::AltModifier);
    for (const Pair& pair : pairs) {
        const bool isDown = GetKeyState(pair.either) < 0, shouldBe = held & pair.bit;
        if (isDown == shouldBe || pair.either == except || (isGraph && pair.either != VK_SHIFT)) continue;
        if (shouldBe) {
            RecordKeyMotion(pair.left, KeyMotion::down);
            continue;
        }
        RecordKeyMotion(pair.left, KeyMotion::up);
        RecordKeyMotion(pair.right, KeyMotion::up);
    }
}

namespace {

constexpr int unknownKey = 0xE7;

bool isGraphHeld() { return GetKeyState(VK_RMENU) < 0 && GetKeyState(VK_LCONTROL) < 0; }

void recordMotion(const QKeyEvent& event, const PressedKey& key, KeyMotion motion)
{
    if (event.key() == Qt::Key_AltGr) RecordKeyMotion(VK_LCONTROL, motion);
    if (key.sided) RecordKeyMotion(key.sided, motion);
}

LPARAM keyWord(const PressedKey& key, bool wasDown, bool isUp)
{
    DWORD word = 1 | (MapVirtualKeyA(static_cast<UINT>(key.sided), MAPVK_VK_TO_VSC) & 0xFF) << 16;
    if (key.isExtended) word |= 1u << 24;
    if (GetKeyState(VK_MENU) < 0) word |= 1u << 29;
    if (wasDown) word |= 1u << 30;
    if (isUp) word |= 1u << 31;
    return static_cast<LPARAM>(static_cast<LONG>(word));
}

MSG stamped(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return {window, message, wParam, lParam, messageTime(), pointerPlace()};
}

WPARAM characterWord(QChar unit)
{
    const WPARAM code = unit.unicode();
    return code < 0x20 || code == 0x7F ? code : code | finalCharacterBit;
}

// Each unit of the text, to the window for as long as it is there.
void sendCharacters(HWND window, UINT message, const QString& text, LPARAM lParam)
{
    for (const QChar unit : text) {
        if (!IsWindow(window)) return;
        MSG character = stamped(window, message, characterWord(unit), lParam);
        offerAndSend(character);
    }
}

} // namespace

bool keyEvent(Window* window, QObject* receiver, QKeyEvent* event)
{
    const bool isUp = event->type() == QEvent::KeyRelease;
    PressedKey key = pressedKeyOf(*event);
    const bool wasDown = key.sided && GetKeyState(key.sided) < 0;
    followHeldKeys(event->modifiers(), key.virtualKey);
    recordMotion(*event, key, isUp ? KeyMotion::up : KeyMotion::down);
    if (!key.virtualKey) key.virtualKey = unknownKey;
    const bool isSystem = (GetKeyState(VK_MENU) < 0 && GetKeyState(VK_CONTROL) >= 0) ||
                          (isUp && key.virtualKey == VK_MENU) || key.virtualKey == 0x79; // F10
    const UINT message = isUp ? (isSystem ? WM_SYSKEYUP : WM_KEYUP) : (isSystem ? WM_SYSKEYDOWN : WM_KEYDOWN);
    const HWND handle = window ? window->handle() : GetFocus();
    MSG pressed =
        stamped(handle, message, static_cast<WPARAM>(key.virtualKey), keyWord(key, wasDown || isUp, isUp));
    if (!window && QApplication::activePopupWidget()) return false; // an open menu has the keys to itself
    if (!window) {                                                  // a menu or another part of the toolkit
        if (!offer(pressed)) return false;
        event->accept();
        return true;
    }
    event->accept();
    if (!window->isEnabled()) return true;
    noticeLayout(*event, handle);
    if (!IsWindow(handle)) return true;
    const QString text = isUp ? QString() : event->text();
    EventInHand inHand(event, receiver, handle,
                       text.isEmpty() ? EventInHand::Phase::only : EventInHand::Phase::keyBeforeCharacters);
    bool wasConsumed = false;
    offerAndSend(pressed, &wasConsumed);
    if (wasConsumed || text.isEmpty()) return true;
    const bool isCommand = isSystem && !isGraphHeld() && key.virtualKey != 0x79;
    for (const QChar unit : text) {
        inHand.enter(EventInHand::Phase::character);
        sendCharacters(handle, isCommand ? WM_SYSCHAR : WM_CHAR, unit, pressed.lParam);
    }
    return true;
}

bool composedText(Window& window, QInputMethodEvent* event)
{
    if (window.paintsItself()) return false; // controls compose by themselves
    event->accept();
    showComposition(window, event->preeditString());
    if (window.isEnabled()) sendCharacters(window.handle(), WM_CHAR, event->commitString(), 1);
    return true;
}

} // namespace corekit::detail

using namespace corekit::detail;

BOOL TranslateMessage(const MSG* message)
{
    return message && (message->message == WM_KEYDOWN || message->message == WM_SYSKEYDOWN);
}

int TranslateAcceleratorA(HWND window, HACCEL table, MSG* message)
{
    if (!message || !IsWindow(window)) return 0;
    const bool isKey = message->message == WM_KEYDOWN || message->message == WM_SYSKEYDOWN;
    const bool isCharacter = message->message == WM_CHAR || message->message == WM_SYSCHAR;
    const int count = isKey || isCharacter ? CopyAcceleratorTableA(table, nullptr, 0) : 0;
    std::vector<ACCEL> rows(static_cast<std::size_t>(count));
    CopyAcceleratorTableA(table, rows.data(), count);
    const auto isHeld = [](int key) { return GetKeyState(key) < 0; };
    for (const ACCEL& row : rows) {
        if (row.key != LOWORD(message->wParam) || isKey != ((row.fVirt & FVIRTKEY) != 0)) continue;
        if (isKey && (isHeld(VK_SHIFT) != ((row.fVirt & FSHIFT) != 0) ||
                      isHeld(VK_CONTROL) != ((row.fVirt & FCONTROL) != 0)))
            continue;
        if (isHeld(VK_MENU) != ((row.fVirt & FALT) != 0)) continue;
        SendMessageA(window, WM_COMMAND, MAKELONG(row.cmd, 1), 0);
        return 1;
    }
    return 0;
}
