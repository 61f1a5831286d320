// Styles of windows and classes, and the numbers that the window calls take.
#pragma once

#include "corekit/platform/Types.h"

using ATOM = WORD;
using ULONG_PTR = UINT_PTR;
// What a window does with a message.
using WNDPROC = LRESULT (*)(HWND, UINT, WPARAM, LPARAM);

// ---- Window styles
// A top window, a bare one, or a child; then state, and what its frame has. WS_CAPTION is border and dialog
// frame together; WS_GROUP and WS_TABSTOP are for controls, and share their bits with the two boxes of a
// frame.
inline constexpr DWORD WS_OVERLAPPED = 0, WS_POPUP = 0x80000000, WS_CHILD = 0x40000000,
                       WS_MINIMIZE = 0x20000000, WS_VISIBLE = 0x10000000, WS_DISABLED = 0x08000000,
                       WS_CLIPSIBLINGS = 0x04000000, WS_CLIPCHILDREN = 0x02000000, WS_MAXIMIZE = 0x01000000,
                       WS_CAPTION = 0x00C00000, WS_BORDER = 0x00800000, WS_DLGFRAME = 0x00400000,
                       WS_VSCROLL = 0x00200000, WS_HSCROLL = 0x00100000, WS_SYSMENU = 0x00080000,
                       WS_THICKFRAME = 0x00040000, WS_GROUP = 0x00020000, WS_TABSTOP = 0x00010000,
                       WS_MINIMIZEBOX = 0x00020000, WS_MAXIMIZEBOX = 0x00010000;
inline constexpr DWORD WS_OVERLAPPEDWINDOW = // a frame with everything
    WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
inline constexpr DWORD WS_POPUPWINDOW = WS_POPUP | WS_BORDER | WS_SYSMENU; // a bare one with a border
// In effect: a dialog's frame, no WM_PARENTNOTIFY, above all others, taking files, showing what lies below,
// tool window, sunken edges, a container of controls for Tab, mirrored layout, never active. The others are
// kept and have no effect.
inline constexpr DWORD WS_EX_DLGMODALFRAME = 0x1, WS_EX_NOPARENTNOTIFY = 0x4, WS_EX_TOPMOST = 0x8,
                       WS_EX_ACCEPTFILES = 0x10, WS_EX_TRANSPARENT = 0x20, WS_EX_TOOLWINDOW = 0x80,
                       WS_EX_WINDOWEDGE = 0x100, WS_EX_CLIENTEDGE = 0x200, WS_EX_CONTEXTHELP = 0x400,
                       WS_EX_RIGHT = 0x1000, WS_EX_RTLREADING = 0x2000, WS_EX_LEFTSCROLLBAR = 0x4000,
                       WS_EX_CONTROLPARENT = 0x10000, WS_EX_STATICEDGE = 0x20000, WS_EX_APPWINDOW = 0x40000,
                       WS_EX_LAYOUTRTL = 0x400000, WS_EX_NOACTIVATE = 0x08000000;

// ---- Class styles
// CS_DBLCLKS asks for double clicks. A window paints itself whole whenever its size changes; the others are
// kept and have no effect.
inline constexpr UINT CS_VREDRAW = 0x1, CS_HREDRAW = 0x2, CS_DBLCLKS = 0x8, CS_OWNDC = 0x20,
                      CS_NOCLOSE = 0x200, CS_SAVEBITS = 0x800;

// ---- CreateWindowExA
inline constexpr int CW_USEDEFAULT = static_cast<int>(0x80000000); // place or size by the toolkit

// ---- Words of a window and its class
// Procedure, module, parent or owner, id, styles, a value of the program's.
inline constexpr int GWLP_WNDPROC = -4, GWLP_HINSTANCE = -6, GWLP_HWNDPARENT = -8, GWLP_ID = -12,
                     GWL_STYLE = -16, GWL_EXSTYLE = -20, GWLP_USERDATA = -21;

// ---- The tree
// Siblings from the topmost to the lowest, the owner of a top window, the topmost child.
inline constexpr UINT GW_HWNDFIRST = 0, GW_HWNDLAST = 1, GW_HWNDNEXT = 2, GW_HWNDPREV = 3, GW_OWNER = 4,
                      GW_CHILD = 5;
// The parent alone, the top window, the outermost owner.
inline constexpr UINT GA_PARENT = 1, GA_ROOT = 2, GA_ROOTOWNER = 3;

// ---- ShowWindow
// NA and NOACTIVATE do not make it the active window.
inline constexpr int SW_HIDE = 0, SW_SHOWNORMAL = 1, SW_SHOWMINIMIZED = 2, SW_SHOWMAXIMIZED = 3,
                     SW_MAXIMIZE = 3, SW_SHOWNOACTIVATE = 4, SW_SHOW = 5, SW_MINIMIZE = 6,
                     SW_SHOWMINNOACTIVE = 7, SW_SHOWNA = 8, SW_RESTORE = 9, SW_SHOWDEFAULT = 10;

// ---- SetWindowPos
// What stays as it is; SWP_FRAMECHANGED looks at the styles anew. NOREDRAW, NOCOPYBITS and NOOWNERZORDER
// have no effect.
inline constexpr UINT SWP_NOSIZE = 0x1, SWP_NOMOVE = 0x2, SWP_NOZORDER = 0x4, SWP_NOREDRAW = 0x8,
                      SWP_NOACTIVATE = 0x10, SWP_FRAMECHANGED = 0x20, SWP_DRAWFRAME = 0x20,
                      SWP_SHOWWINDOW = 0x40, SWP_HIDEWINDOW = 0x80, SWP_NOCOPYBITS = 0x100,
                      SWP_NOOWNERZORDER = 0x200;
inline HWND const HWND_TOP = nullptr;                                             // above its siblings
inline HWND const HWND_BOTTOM = reinterpret_cast<HWND>(static_cast<LONG_PTR>(1)); // below them
// Above all other windows, for good.
inline HWND const HWND_TOPMOST = reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1));
inline HWND const HWND_NOTOPMOST = reinterpret_cast<HWND>(static_cast<LONG_PTR>(-2)); // no longer so

// ---- Errors
// Of classes: none of that name to make a window of, one already, none to ask about.
inline constexpr DWORD ERROR_CANNOT_FIND_WND_CLASS = 1407, ERROR_CLASS_ALREADY_EXISTS = 1410,
                       ERROR_CLASS_DOES_NOT_EXIST = 1411;
