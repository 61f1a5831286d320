// What the parts of the window layer ask of each other. Toolkit's thread.
#pragma once

#include "corekit/platform/qt/windows/Window.h"

class QPainter;
class QRegion;

namespace corekit::detail {

// Calls a window's present procedure.
class WindowProcedures {
public:
    static LRESULT call(Window& window, const MSG& message);
};

// DestroyWindow for a handle that has been checked; false while it is going down already.
bool endWindow(HWND handle);

// Changes words without asking the toolkit; styles tell the window that they have changed.
void setStyleBits(Window& window, DWORD style);
void setParentWord(Window& window, HWND parent);

// The children at one depth, the topmost first.
std::vector<HWND> childrenOf(const Window& window);

// Focus, capture, caret and timers of a window that is going: they end here.
void forgetInput(HWND window);
void forgetFocus(HWND window);
void forgetCapture(HWND window);
void forgetCaret(HWND window);
void forgetTimers(HWND window);
void forgetMenu(HWND window); // destroys it

// Whether the widget is a scroll bar or the menu bar of a bare window, which the toolkit serves.
inline bool isPart(const Window& window, const QWidget& widget)
{
    return !window.paintsItself() && window.widget() != &widget;
}

// Tells who loses and who gets the focus, if that is news.
void moveFocus(HWND to);
// The same for the active window.
void moveActive(HWND to);
void raiseWidget(QWidget& widget);

// The caret around a paint of a part of its window, in coordinates of the widget.
void paintCaret(Window& window, QPainter& painter);
// Takes the caret off the picture while pixels are moved or read; counts.
class CaretHidden {
public:
    explicit CaretHidden(HWND window);
    CaretHidden(const CaretHidden&) = delete;
    CaretHidden& operator=(const CaretHidden&) = delete;
    ~CaretHidden();

private:
    const bool m_wasShown;
};
// Where input methods open: the caret's place if the window has it, in coordinates of the widget; else empty.
QRect caretPlace(const Window& window);

LRESULT defaultIcon(Window& window, UINT message, WPARAM which, LPARAM icon);
void showIcon(Window& window); // its own, else its class's
// Alt and a letter: opens the menu of the bar of the window's top window that has it underlined.
void openMenuByLetter(const Window& window, WCHAR letter);
DWORD messageTime(); // milliseconds, as MSG counts them

// Answers a paint of the toolkit by WM_PAINT; the region is in the receiver.
void paintWindow(Window& window, QWidget& receiver, const QRegion& region);
void forgetPainting(HWND window);
// For a control that paints itself: within its own WM_PAINT, nothing is prepared.
bool isPainting(HWND window);

} // namespace corekit::detail
