// The handlers of window messages: one macro each, for a member of the name and type that it states.
//
// Handlers of the base may be called: they do what happens to the message without a handler.
//
// Names behind a row are the arguments of its handler. Objects that are handed over (CDC, CMenu, CWnd) are
// temporary: good during the call. Points are in the client area unless said otherwise.
#pragma once

#include "corekit/platform/Types.h"

inline constexpr UINT WM_CTLCOLORBASE = 0x0019; // rows of all WM_CTLCOLOR messages
inline constexpr UINT WM_REFLECT_BASE = 0xBC00; // added to a message that a control gets back from its parent

// How a handler of a window message is called; behind the numbers of commands.
enum AfxSig : UINT_PTR {
    AfxSig_first = 0x40,
    AfxSig_message = AfxSig_first, // LRESULT (WPARAM, LPARAM)
    AfxSig_create,                 // int (CREATESTRUCTA*)
    AfxSig_createBool,             // BOOL (CREATESTRUCTA*)
    AfxSig_plain,                  // void ()
    AfxSig_twoInts,                // void (int, int)
    AfxSig_size,                   // void (UINT, int, int)
    AfxSig_activate,               // void (UINT, CWnd*, BOOL)
    AfxSig_window,                 // void (CWnd*)
    AfxSig_flag,                   // void (BOOL)
    AfxSig_answer,                 // BOOL ()
    AfxSig_context,                // BOOL (CDC*)
    AfxSig_show,                   // void (BOOL, UINT)
    AfxSig_setting,                // void (UINT, const char*)
    AfxSig_activateApp,            // void (BOOL, DWORD)
    AfxSig_windowWords,            // BOOL (CWnd*, UINT, UINT)
    AfxSig_windowWordsInt,         // int (CWnd*, UINT, UINT)
    AfxSig_pointer,                // void (MINMAXINFO*)
    AfxSig_item,                   // void (int, DRAWITEMSTRUCT*)
    AfxSig_itemInt,                // int (int, COMPAREITEMSTRUCT*)
    AfxSig_windowPoint,            // void (CWnd*, CPoint)
    AfxSig_pointResult,            // LRESULT (CPoint)
    AfxSig_answerUint,             // UINT ()
    AfxSig_uints,                  // void (UINT, UINT)
    AfxSig_key,                    // void (UINT, UINT, UINT)
    AfxSig_sysCommand,             // void (UINT, LPARAM)
    AfxSig_timer,                  // void (UINT_PTR)
    AfxSig_scroll,                 // void (UINT, UINT, CScrollBar*)
    AfxSig_menu,                   // void (CMenu*)
    AfxSig_menuPopup,              // void (CMenu*, UINT, BOOL)
    AfxSig_menuSelect,             // void (UINT, UINT, HMENU)
    AfxSig_colour,                 // HBRUSH (CDC*, CWnd*, UINT)
    AfxSig_windowInLong,           // void (CWnd*)
    AfxSig_drop,                   // void (HDROP)
    AfxSig_mouse,                  // void (UINT, CPoint)
    AfxSig_wheel,                  // BOOL (UINT, short, CPoint)
    AfxSig_codePosition,           // void (UINT, UINT)
    AfxSig_colourReflect,          // HBRUSH (CDC*, UINT)
    AfxSig_end
};

// -1 stops the creation.
#define ON_WM_CREATE()                                                                                       \
    COREKIT_MAP_ROW(WM_CREATE, 0, 0, 0, AfxSig_create, CWnd, int, (CREATESTRUCTA*), &ThisClass::OnCreate)
#define ON_WM_NCCREATE()                                                                                     \
    COREKIT_MAP_ROW(WM_NCCREATE, 0, 0, 0, AfxSig_createBool, CWnd, BOOL, (CREATESTRUCTA*),                   \
                    &ThisClass::OnNcCreate) // FALSE stops the creation
// Children are still there.
#define ON_WM_DESTROY()                                                                                      \
    COREKIT_MAP_ROW(WM_DESTROY, 0, 0, 0, AfxSig_plain, CWnd, void, (), &ThisClass::OnDestroy)
// The last message.
#define ON_WM_NCDESTROY()                                                                                    \
    COREKIT_MAP_ROW(WM_NCDESTROY, 0, 0, 0, AfxSig_plain, CWnd, void, (), &ThisClass::OnNcDestroy)
// X, y of the client area.
#define ON_WM_MOVE()                                                                                         \
    COREKIT_MAP_ROW(WM_MOVE, 0, 0, 0, AfxSig_twoInts, CWnd, void, (int, int), &ThisClass::OnMove)
// SIZE_, client width, height.
#define ON_WM_SIZE()                                                                                         \
    COREKIT_MAP_ROW(WM_SIZE, 0, 0, 0, AfxSig_size, CWnd, void, (UINT, int, int), &ThisClass::OnSize)
#define ON_WM_ACTIVATE()                                                                                     \
    COREKIT_MAP_ROW(WM_ACTIVATE, 0, 0, 0, AfxSig_activate, CWnd, void, (UINT, CWnd*, BOOL),                  \
                    &ThisClass::OnActivate) // WA_, the other window, minimised
// The window that loses it.
#define ON_WM_SETFOCUS()                                                                                     \
    COREKIT_MAP_ROW(WM_SETFOCUS, 0, 0, 0, AfxSig_window, CWnd, void, (CWnd*), &ThisClass::OnSetFocus)
// The window that gets it.
#define ON_WM_KILLFOCUS()                                                                                    \
    COREKIT_MAP_ROW(WM_KILLFOCUS, 0, 0, 0, AfxSig_window, CWnd, void, (CWnd*), &ThisClass::OnKillFocus)
// Whether enabled.
#define ON_WM_ENABLE()                                                                                       \
    COREKIT_MAP_ROW(WM_ENABLE, 0, 0, 0, AfxSig_flag, CWnd, void, (BOOL), &ThisClass::OnEnable)
#define ON_WM_PAINT() COREKIT_MAP_ROW(WM_PAINT, 0, 0, 0, AfxSig_plain, CWnd, void, (), &ThisClass::OnPaint)
#define ON_WM_CLOSE() COREKIT_MAP_ROW(WM_CLOSE, 0, 0, 0, AfxSig_plain, CWnd, void, (), &ThisClass::OnClose)
// Not sent by this platform.
#define ON_WM_QUERYENDSESSION()                                                                              \
    COREKIT_MAP_ROW(WM_QUERYENDSESSION, 0, 0, 0, AfxSig_answer, CWnd, BOOL, (), &ThisClass::OnQueryEndSession)
// Whether it ends; not sent by this platform.
#define ON_WM_ENDSESSION()                                                                                   \
    COREKIT_MAP_ROW(WM_ENDSESSION, 0, 0, 0, AfxSig_flag, CWnd, void, (BOOL), &ThisClass::OnEndSession)
// Nonzero: the background is done.
#define ON_WM_ERASEBKGND()                                                                                   \
    COREKIT_MAP_ROW(WM_ERASEBKGND, 0, 0, 0, AfxSig_context, CWnd, BOOL, (CDC*), &ThisClass::OnEraseBkgnd)
#define ON_WM_SYSCOLORCHANGE()                                                                               \
    COREKIT_MAP_ROW(WM_SYSCOLORCHANGE, 0, 0, 0, AfxSig_plain, CWnd, void, (), &ThisClass::OnSysColorChange)
// Shown, why.
#define ON_WM_SHOWWINDOW()                                                                                   \
    COREKIT_MAP_ROW(WM_SHOWWINDOW, 0, 0, 0, AfxSig_show, CWnd, void, (BOOL, UINT), &ThisClass::OnShowWindow)
#define ON_WM_SETTINGCHANGE()                                                                                \
    COREKIT_MAP_ROW(WM_SETTINGCHANGE, 0, 0, 0, AfxSig_setting, CWnd, void, (UINT, const char*),              \
                    &ThisClass::OnSettingChange) // what, section; not sent by this platform
#define ON_WM_ACTIVATEAPP()                                                                                  \
    COREKIT_MAP_ROW(WM_ACTIVATEAPP, 0, 0, 0, AfxSig_activateApp, CWnd, void, (BOOL, DWORD),                  \
                    &ThisClass::OnActivateApp) // active, thread
#define ON_WM_CANCELMODE()                                                                                   \
    COREKIT_MAP_ROW(WM_CANCELMODE, 0, 0, 0, AfxSig_plain, CWnd, void, (), &ThisClass::OnCancelMode)
#define ON_WM_SETCURSOR()                                                                                    \
    COREKIT_MAP_ROW(WM_SETCURSOR, 0, 0, 0, AfxSig_windowWords, CWnd, BOOL, (CWnd*, UINT, UINT),              \
                    &ThisClass::OnSetCursor) // window, HT code, mouse message; nonzero: a cursor is set
#define ON_WM_MOUSEACTIVATE()                                                                                \
    COREKIT_MAP_ROW(WM_MOUSEACTIVATE, 0, 0, 0, AfxSig_windowWordsInt, CWnd, int, (CWnd*, UINT, UINT),        \
                    &ThisClass::OnMouseActivate) // top window, HT code, mouse message; answers MA_
#define ON_WM_GETMINMAXINFO()                                                                                \
    COREKIT_MAP_ROW(WM_GETMINMAXINFO, 0, 0, 0, AfxSig_pointer, CWnd, void, (MINMAXINFO*),                    \
                    &ThisClass::OnGetMinMaxInfo) // may be changed
#define ON_WM_DRAWITEM()                                                                                     \
    COREKIT_MAP_ROW(WM_DRAWITEM, 0, 0, 0, AfxSig_item, CWnd, void, (int, DRAWITEMSTRUCT*),                   \
                    &ThisClass::OnDrawItem) // id, what to draw
#define ON_WM_MEASUREITEM()                                                                                  \
    COREKIT_MAP_ROW(WM_MEASUREITEM, 0, 0, 0, AfxSig_item, CWnd, void, (int, MEASUREITEMSTRUCT*),             \
                    &ThisClass::OnMeasureItem) // id, sizes to fill in
#define ON_WM_DELETEITEM()                                                                                   \
    COREKIT_MAP_ROW(WM_DELETEITEM, 0, 0, 0, AfxSig_item, CWnd, void, (int, DELETEITEMSTRUCT*),               \
                    &ThisClass::OnDeleteItem) // id, the item
#define ON_WM_COMPAREITEM()                                                                                  \
    COREKIT_MAP_ROW(WM_COMPAREITEM, 0, 0, 0, AfxSig_itemInt, CWnd, int, (int, COMPAREITEMSTRUCT*),           \
                    &ThisClass::OnCompareItem) // id, two items; below 0, 0, above 0
#define ON_WM_WINDOWPOSCHANGING()                                                                            \
    COREKIT_MAP_ROW(WM_WINDOWPOSCHANGING, 0, 0, 0, AfxSig_pointer, CWnd, void, (WINDOWPOS*),                 \
                    &ThisClass::OnWindowPosChanging) // may be changed
#define ON_WM_WINDOWPOSCHANGED()                                                                             \
    COREKIT_MAP_ROW(WM_WINDOWPOSCHANGED, 0, 0, 0, AfxSig_pointer, CWnd, void, (WINDOWPOS*),                  \
                    &ThisClass::OnWindowPosChanged) // as it is now
#define ON_WM_CONTEXTMENU()                                                                                  \
    COREKIT_MAP_ROW(WM_CONTEXTMENU, 0, 0, 0, AfxSig_windowPoint, CWnd, void, (CWnd*, CPoint),                \
                    &ThisClass::OnContextMenu) // window, screen point, (-1, -1) from the keyboard
#define ON_WM_NCHITTEST()                                                                                    \
    COREKIT_MAP_ROW(WM_NCHITTEST, 0, 0, 0, AfxSig_pointResult, CWnd, LRESULT, (CPoint),                      \
                    &ThisClass::OnNcHitTest) // screen point; answers HT code
// Not sent by this platform.
#define ON_WM_NCPAINT()                                                                                      \
    COREKIT_MAP_ROW(WM_NCPAINT, 0, 0, 0, AfxSig_plain, CWnd, void, (), &ThisClass::OnNcPaint)
// Answers DLGC_.
#define ON_WM_GETDLGCODE()                                                                                   \
    COREKIT_MAP_ROW(WM_GETDLGCODE, 0, 0, 0, AfxSig_answerUint, CWnd, UINT, (), &ThisClass::OnGetDlgCode)
#define ON_WM_INPUTLANGCHANGE()                                                                              \
    COREKIT_MAP_ROW(WM_INPUTLANGCHANGE, 0, 0, 0, AfxSig_uints, CWnd, void, (UINT, UINT),                     \
                    &ThisClass::OnInputLangChange) // character set, layout's low word
// Virtual key, repeats, flags.
#define ON_WM_KEYDOWN()                                                                                      \
    COREKIT_MAP_ROW(WM_KEYDOWN, 0, 0, 0, AfxSig_key, CWnd, void, (UINT, UINT, UINT), &ThisClass::OnKeyDown)
// The same.
#define ON_WM_KEYUP()                                                                                        \
    COREKIT_MAP_ROW(WM_KEYUP, 0, 0, 0, AfxSig_key, CWnd, void, (UINT, UINT, UINT), &ThisClass::OnKeyUp)
// UTF-16 unit and finalCharacterBit, repeats, flags.
#define ON_WM_CHAR()                                                                                         \
    COREKIT_MAP_ROW(WM_CHAR, 0, 0, 0, AfxSig_key, CWnd, void, (UINT, UINT, UINT), &ThisClass::OnChar)
#define ON_WM_SYSKEYDOWN()                                                                                   \
    COREKIT_MAP_ROW(WM_SYSKEYDOWN, 0, 0, 0, AfxSig_key, CWnd, void, (UINT, UINT, UINT),                      \
                    &ThisClass::OnSysKeyDown) // with Alt held, and F10
#define ON_WM_SYSKEYUP()                                                                                     \
    COREKIT_MAP_ROW(WM_SYSKEYUP, 0, 0, 0, AfxSig_key, CWnd, void, (UINT, UINT, UINT), &ThisClass::OnSysKeyUp)
#define ON_WM_SYSCHAR()                                                                                      \
    COREKIT_MAP_ROW(WM_SYSCHAR, 0, 0, 0, AfxSig_key, CWnd, void, (UINT, UINT, UINT), &ThisClass::OnSysChar)
#define ON_WM_SYSCOMMAND()                                                                                   \
    COREKIT_MAP_ROW(WM_SYSCOMMAND, 0, 0, 0, AfxSig_sysCommand, CWnd, void, (UINT, LPARAM),                   \
                    &ThisClass::OnSysCommand) // SC_, packed screen point
#define ON_WM_TIMER()                                                                                        \
    COREKIT_MAP_ROW(WM_TIMER, 0, 0, 0, AfxSig_timer, CWnd, void, (UINT_PTR), &ThisClass::OnTimer) // id
#define ON_WM_HSCROLL()                                                                                      \
    COREKIT_MAP_ROW(WM_HSCROLL, 0, 0, 0, AfxSig_scroll, CWnd, void, (UINT, UINT, CScrollBar*),               \
                    &ThisClass::OnHScroll) // SB_ code, thumb, bar; null: the window's own
#define ON_WM_VSCROLL()                                                                                      \
    COREKIT_MAP_ROW(WM_VSCROLL, 0, 0, 0, AfxSig_scroll, CWnd, void, (UINT, UINT, CScrollBar*),               \
                    &ThisClass::OnVScroll) // the same
// Not sent by this platform.
#define ON_WM_INITMENU()                                                                                     \
    COREKIT_MAP_ROW(WM_INITMENU, 0, 0, 0, AfxSig_menu, CWnd, void, (CMenu*), &ThisClass::OnInitMenu)
#define ON_WM_INITMENUPOPUP()                                                                                \
    COREKIT_MAP_ROW(WM_INITMENUPOPUP, 0, 0, 0, AfxSig_menuPopup, CWnd, void, (CMenu*, UINT, BOOL),           \
                    &ThisClass::OnInitMenuPopup) // menu, index in its bar, of the system
#define ON_WM_MENUSELECT()                                                                                   \
    COREKIT_MAP_ROW(WM_MENUSELECT, 0, 0, 0, AfxSig_menuSelect, CWnd, void, (UINT, UINT, HMENU),              \
                    &ThisClass::OnMenuSelect) // id or index, MF_, menu
#define ON_WM_CTLCOLOR()                                                                                     \
    COREKIT_MAP_ROW(WM_CTLCOLORBASE, 0, 0, 0, AfxSig_colour, CWnd, HBRUSH, (CDC*, CWnd*, UINT),              \
                    &ThisClass::OnCtlColor) // context, control, kind from 0; answers a brush
#define ON_WM_PARENTNOTIFY()                                                                                 \
    COREKIT_MAP_ROW(WM_PARENTNOTIFY, 0, 0, 0, AfxSig_sysCommand, CWnd, void, (UINT, LPARAM),                 \
                    &ThisClass::OnParentNotify) // message and id, child or point
#define ON_WM_CAPTURECHANGED()                                                                               \
    COREKIT_MAP_ROW(WM_CAPTURECHANGED, 0, 0, 0, AfxSig_windowInLong, CWnd, void, (CWnd*),                    \
                    &ThisClass::OnCaptureChanged) // the window that has it now
// For DragFinish to end.
#define ON_WM_DROPFILES()                                                                                    \
    COREKIT_MAP_ROW(WM_DROPFILES, 0, 0, 0, AfxSig_drop, CWnd, void, (HDROP), &ThisClass::OnDropFiles)
// MK_, point.
#define ON_WM_MOUSEMOVE()                                                                                    \
    COREKIT_MAP_ROW(WM_MOUSEMOVE, 0, 0, 0, AfxSig_mouse, CWnd, void, (UINT, CPoint), &ThisClass::OnMouseMove)
#define ON_WM_LBUTTONDOWN()                                                                                  \
    COREKIT_MAP_ROW(WM_LBUTTONDOWN, 0, 0, 0, AfxSig_mouse, CWnd, void, (UINT, CPoint),                       \
                    &ThisClass::OnLButtonDown) // MK_, point; the others alike
#define ON_WM_LBUTTONUP()                                                                                    \
    COREKIT_MAP_ROW(WM_LBUTTONUP, 0, 0, 0, AfxSig_mouse, CWnd, void, (UINT, CPoint), &ThisClass::OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK()                                                                                \
    COREKIT_MAP_ROW(WM_LBUTTONDBLCLK, 0, 0, 0, AfxSig_mouse, CWnd, void, (UINT, CPoint),                     \
                    &ThisClass::OnLButtonDblClk)
#define ON_WM_RBUTTONDOWN()                                                                                  \
    COREKIT_MAP_ROW(WM_RBUTTONDOWN, 0, 0, 0, AfxSig_mouse, CWnd, void, (UINT, CPoint),                       \
                    &ThisClass::OnRButtonDown)
#define ON_WM_RBUTTONUP()                                                                                    \
    COREKIT_MAP_ROW(WM_RBUTTONUP, 0, 0, 0, AfxSig_mouse, CWnd, void, (UINT, CPoint), &ThisClass::OnRButtonUp)
#define ON_WM_RBUTTONDBLCLK()                                                                                \
    COREKIT_MAP_ROW(WM_RBUTTONDBLCLK, 0, 0, 0, AfxSig_mouse, CWnd, void, (UINT, CPoint),                     \
                    &ThisClass::OnRButtonDblClk)
#define ON_WM_MBUTTONDOWN()                                                                                  \
    COREKIT_MAP_ROW(WM_MBUTTONDOWN, 0, 0, 0, AfxSig_mouse, CWnd, void, (UINT, CPoint),                       \
                    &ThisClass::OnMButtonDown)
#define ON_WM_MBUTTONUP()                                                                                    \
    COREKIT_MAP_ROW(WM_MBUTTONUP, 0, 0, 0, AfxSig_mouse, CWnd, void, (UINT, CPoint), &ThisClass::OnMButtonUp)
#define ON_WM_MBUTTONDBLCLK()                                                                                \
    COREKIT_MAP_ROW(WM_MBUTTONDBLCLK, 0, 0, 0, AfxSig_mouse, CWnd, void, (UINT, CPoint),                     \
                    &ThisClass::OnMButtonDblClk)
#define ON_WM_MOUSEWHEEL()                                                                                   \
    COREKIT_MAP_ROW(WM_MOUSEWHEEL, 0, 0, 0, AfxSig_wheel, CWnd, BOOL, (UINT, short, CPoint),                 \
                    &ThisClass::OnMouseWheel) // MK_, 120 a notch, screen point
// After TrackMouseEvent.
#define ON_WM_MOUSELEAVE()                                                                                   \
    COREKIT_MAP_ROW(WM_MOUSELEAVE, 0, 0, 0, AfxSig_plain, CWnd, void, (), &ThisClass::OnMouseLeave)

// Reflected: the control's own members.
#define ON_WM_HSCROLL_REFLECT()                                                                              \
    COREKIT_MAP_ROW(WM_HSCROLL + WM_REFLECT_BASE, 0, 0, 0, AfxSig_codePosition, CWnd, void, (UINT, UINT),    \
                    &ThisClass::HScroll) // SB_ code, thumb
#define ON_WM_VSCROLL_REFLECT()                                                                              \
    COREKIT_MAP_ROW(WM_VSCROLL + WM_REFLECT_BASE, 0, 0, 0, AfxSig_codePosition, CWnd, void, (UINT, UINT),    \
                    &ThisClass::VScroll)
#define ON_WM_CTLCOLOR_REFLECT()                                                                             \
    COREKIT_MAP_ROW(WM_CTLCOLORBASE + WM_REFLECT_BASE, 0, 0, 0, AfxSig_colourReflect, CWnd, HBRUSH,          \
                    (CDC*, UINT), &ThisClass::CtlColor) // context, kind; null: the parent answers
