// The parts of a window's frame, as WM_NCHITTEST answers them, and the sides that WM_SIZING names.
//
// A window moves when it is dragged by what it calls HTCAPTION, and is sized by what it calls one of the
// sides; both may lie in its client area. Before each step it may change the rectangle that WM_MOVING and
// WM_SIZING bring; WM_ENTERSIZEMOVE and WM_EXITSIZEMOVE stand around. Where windows do not place themselves
// (Wayland) the desktop drags instead, and asks nothing, as it does everywhere with a frame that it draws.
#pragma once

#include "corekit/platform/WindowMessages.h"

inline constexpr int HTLEFT = 10, HTRIGHT = 11, HTTOP = 12, HTTOPLEFT = 13, HTTOPRIGHT = 14, HTBOTTOM = 15,
                     HTBOTTOMLEFT = 16, HTBOTTOMRIGHT = 17;
// wParam of WM_SIZING; lParam is the RECT on the screen, as it is of WM_MOVING.
inline constexpr UINT WMSZ_LEFT = 1, WMSZ_RIGHT = 2, WMSZ_TOP = 3, WMSZ_TOPLEFT = 4, WMSZ_TOPRIGHT = 5,
                      WMSZ_BOTTOM = 6, WMSZ_BOTTOMLEFT = 7, WMSZ_BOTTOMRIGHT = 8;
