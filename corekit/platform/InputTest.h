// Input as a user would give it, for tests and demonstrations: the toolkit takes it for that of its devices.
//
// Points are in the client area of the window. Each call returns when the input has been dealt with; what was
// posted meanwhile is dealt with, too. Without a window of this thread nothing happens. User-interface
// thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <functional>
#include <initializer_list>
#include <string_view>

namespace corekit::test {

enum class Button { left, right, middle };
enum class Clicks { one, two };

// Presses and releases a virtual key (Keyboard.h) in whichever window has the focus, with others held:
// PressKey('A', {VK_CONTROL}). Letters and digits bring their character along, as on a United States layout.
COREKIT_API void PressKey(int virtualKey, std::initializer_list<int> held = {});
// One half of that.
COREKIT_API void KeyDown(int virtualKey, std::initializer_list<int> held = {});
COREKIT_API void KeyUp(int virtualKey, std::initializer_list<int> held = {});
// Presses a key for each character of the United States layout; any other character is sent as text that an
// input method composed.
COREKIT_API void TypeText(std::u16string_view text);
// Text that an input method composed, whole.
COREKIT_API void ComposeText(std::u16string_view text);
// Text that it is still composing.
COREKIT_API void ComposeUnfinished(std::u16string_view text);

COREKIT_API void Click(HWND window, POINT point, Button button = Button::left, Clicks clicks = Clicks::one,
                       std::initializer_list<int> held = {});
COREKIT_API void MoveMouse(HWND window, POINT point);
COREKIT_API void MouseDown(HWND window, POINT point, Button button = Button::left,
                           std::initializer_list<int> held = {});
COREKIT_API void MouseUp(HWND window, POINT point, Button button = Button::left,
                         std::initializer_list<int> held = {});
// Presses at the first point, moves in a few steps, releases at the second.
COREKIT_API void Drag(HWND window, POINT from, POINT to, Button button = Button::left);
// 120 a notch, up positive.
COREKIT_API void TurnWheel(HWND window, POINT point, int delta);

// Drags from elsewhere to the point and lets go there; whether it was taken.
COREKIT_API bool DropText(HWND window, POINT point, std::u16string_view text);
COREKIT_API bool DropFiles(HWND window, POINT point, std::initializer_list<const char*> names);
// Drags a text there and holds it until the condition is true, for half a minute at most; then drags it out.
COREKIT_API void HoldTextOver(HWND window, POINT point, std::u16string_view text,
                              const std::function<bool()>& until);
// Drags a text there and on, out of the window again.
COREKIT_API void DragTextAcross(HWND window, POINT point, std::u16string_view text);

// Deals with everything that waits: posted messages, paints, timers that are due.
COREKIT_API void RunWaiting();
// The same for a time.
COREKIT_API void RunFor(int milliseconds);
// A picture of a window with its children, its frame left out: a bitmap for the caller to delete.
COREKIT_API HBITMAP PictureOf(HWND window);

} // namespace corekit::test
