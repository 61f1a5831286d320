// Moving and sizing a window by a part of its own, and how small and large it may become.
#pragma once

#include "corekit/platform/qt/windows/Window.h"

class QMouseEvent;

namespace corekit::detail {

// For a mouse event that would go to the client area: the code of WM_NCHITTEST. A bare window is asked.
int partUnder(const Window& window, QPoint onScreen);
// Takes a mouse event while a window is dragged; false if none is.
bool dragFrame(const QMouseEvent& event);
// Takes the window back where the drag began; false if none is dragged.
bool giveUpFrameDrag();
void endFrameDrag(HWND window);

// The defaults of WM_NCLBUTTONDOWN, WM_NCLBUTTONDBLCLK and of WM_SETCURSOR over a side.
LRESULT pressFrame(Window& window, int part, LPARAM onScreen); // 0: where the pointer is
LRESULT pressFrameTwice(Window& window, int part);
bool setFrameCursor(int part);

// Asks a window that the user may size by WM_GETMINMAXINFO, and has the toolkit keep to it.
void followSizeLimits(Window& window);

} // namespace corekit::detail
