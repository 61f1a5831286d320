// What a window does with messages that its class leaves to the base: each handler passes the message in hand
// on to the window's default. Their rows are in MessageMapWindow.h.
//
// A class overrides nothing here: it declares a member of the same name and arguments, names it in its
// message map, and may call this one for what happens otherwise. What the arguments mean stands in
// MessageMapWindow.h. User-interface thread, within a message only.
#pragma once

#include "corekit/framework/CmdTarget.h"
#include "corekit/framework/Geometry.h"
#include "corekit/platform/WindowMessages.h"

class CDC;
class CMenu;
class CScrollBar;
class CWnd;
using HDROP = struct HDROP__*;
using HMENU = struct HMENU__*;

class COREKIT_API CWndMessages : public CCmdTarget {
public:
    // What happens to the message in hand without a handler, with the arguments that it came with.
    virtual LRESULT Default() = 0;

protected:
    // Life, place, state
    int OnCreate(CREATESTRUCTA*) { return static_cast<int>(Default()); }     // -1 stops the creation
    BOOL OnNcCreate(CREATESTRUCTA*) { return static_cast<BOOL>(Default()); } // FALSE stops the creation
    void OnMove(int, int) { Default(); }              // parent's client area, or the screen
    void OnSize(UINT, int, int) { Default(); }        // SIZE_, client width and height
    void OnActivate(UINT, CWnd*, BOOL) { Default(); } // WA_, the other window, minimised
    void OnSetFocus(CWnd*) { Default(); }
    void OnKillFocus(CWnd*) { Default(); }
    void OnEnable(BOOL) { Default(); }
    void OnClose() { Default(); }                                     // destroys the window
    BOOL OnQueryEndSession() { return static_cast<BOOL>(Default()); } // TRUE: the session may end
    void OnEndSession(BOOL) { Default(); }
    void OnShowWindow(BOOL, UINT) { Default(); }
    void OnSettingChange(UINT, const char*) { Default(); }
    void OnActivateApp(BOOL, DWORD) { Default(); }
    void OnCancelMode() { Default(); }
    void OnGetMinMaxInfo(MINMAXINFO*) { Default(); }    // least and greatest size, in pixels
    void OnWindowPosChanging(WINDOWPOS*) { Default(); } // before a change, which it may alter
    void OnWindowPosChanged(WINDOWPOS*) { Default(); }
    void OnSysCommand(UINT, LPARAM) { Default(); } // close, minimise, maximise, restore
    void OnTimer(UINT_PTR) { Default(); }          // calls the timer's procedure, if it has one
    void OnInputLangChange(UINT, UINT) { Default(); }
    void OnDropFiles(HDROP) { Default(); } // nothing is done with the files

    // Drawing
    void OnPaint() { Default(); } // the control draws itself
    void OnNcPaint() { Default(); }
    BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); } // fills with the class's brush
    void OnSysColorChange() { Default(); }
    void OnDrawItem(int, DRAWITEMSTRUCT*) { Default(); } // sent back to the control, as the next three
    void OnMeasureItem(int, MEASUREITEMSTRUCT*) { Default(); }
    void OnDeleteItem(int, DELETEITEMSTRUCT*) { Default(); }
    int OnCompareItem(int, COMPAREITEMSTRUCT*) { return static_cast<int>(Default()); }
    // 0: the theme's colours.
    HBRUSH OnCtlColor(CDC*, CWnd*, UINT) { return reinterpret_cast<HBRUSH>(Default()); }

    // Keys
    UINT OnGetDlgCode() { return static_cast<UINT>(Default()); } // what keys the control wants
    void OnKeyDown(UINT, UINT, UINT) { Default(); }              // virtual key, repeat count, flags of lParam
    void OnKeyUp(UINT, UINT, UINT) { Default(); }
    // UTF-16 unit, with finalCharacterBit unless it is a control character.
    void OnChar(UINT, UINT, UINT) { Default(); }
    void OnSysKeyDown(UINT, UINT, UINT) { Default(); }
    void OnSysKeyUp(UINT, UINT, UINT) { Default(); }
    void OnSysChar(UINT, UINT, UINT) { Default(); } // opens the menu of that letter

    // Mouse
    void OnMouseMove(UINT, CPoint) { Default(); } // MK_ flags, point in the client area
    void OnLButtonDown(UINT, CPoint) { Default(); }
    void OnLButtonUp(UINT, CPoint) { Default(); }
    void OnLButtonDblClk(UINT, CPoint) { Default(); }
    void OnRButtonDown(UINT, CPoint) { Default(); }
    void OnRButtonUp(UINT, CPoint) { Default(); }
    void OnRButtonDblClk(UINT, CPoint) { Default(); }
    void OnMButtonDown(UINT, CPoint) { Default(); }
    void OnMButtonUp(UINT, CPoint) { Default(); }
    void OnMButtonDblClk(UINT, CPoint) { Default(); }
    BOOL OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); } // goes on to the parent
    void OnMouseLeave() { Default(); }
    // The parent first, then the class's cursor.
    BOOL OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
    int OnMouseActivate(CWnd*, UINT, UINT) { return static_cast<int>(Default()); } // a child asks its parent
    LRESULT OnNcHitTest(CPoint) { return Default(); }                              // HTCLIENT
    void OnCaptureChanged(CWnd*) { Default(); }
    void OnContextMenu(CWnd*, CPoint) { Default(); } // goes on to the parent

    // Scroll bars, menus, children
    void OnHScroll(UINT, UINT, CScrollBar*) { Default(); } // of a control: sent back to it
    void OnVScroll(UINT, UINT, CScrollBar*) { Default(); }
    void OnInitMenu(CMenu*) { Default(); }
    void OnInitMenuPopup(CMenu*, UINT, BOOL) { Default(); }
    void OnMenuSelect(UINT, UINT, HMENU) { Default(); }
    void OnParentNotify(UINT, LPARAM) { Default(); }
};
