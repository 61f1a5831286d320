// What a window does with messages that its class leaves to the base: each handler passes the message in hand
// on to the window's default. Their rows are in MessageMapWindow.h.
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
    int OnCreate(CREATESTRUCTA*) { return static_cast<int>(Default()); }
    BOOL OnNcCreate(CREATESTRUCTA*) { return static_cast<BOOL>(Default()); }
    void OnMove(int, int) { Default(); }
    void OnSize(UINT, int, int) { Default(); }
    void OnActivate(UINT, CWnd*, BOOL) { Default(); }
    void OnSetFocus(CWnd*) { Default(); }
    void OnKillFocus(CWnd*) { Default(); }
    void OnEnable(BOOL) { Default(); }
    void OnClose() { Default(); }
    BOOL OnQueryEndSession() { return static_cast<BOOL>(Default()); }
    void OnEndSession(BOOL) { Default(); }
    void OnShowWindow(BOOL, UINT) { Default(); }
    void OnSettingChange(UINT, const char*) { Default(); }
    void OnActivateApp(BOOL, DWORD) { Default(); }
    void OnCancelMode() { Default(); }
    void OnGetMinMaxInfo(MINMAXINFO*) { Default(); }
    void OnWindowPosChanging(WINDOWPOS*) { Default(); }
    void OnWindowPosChanged(WINDOWPOS*) { Default(); }
    void OnSysCommand(UINT, LPARAM) { Default(); }
    void OnTimer(UINT_PTR) { Default(); }
    void OnInputLangChange(UINT, UINT) { Default(); }
    void OnDropFiles(HDROP) { Default(); }

    // Drawing
    void OnPaint() { Default(); }
    void OnNcPaint() { Default(); }
    BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
    void OnSysColorChange() { Default(); }
    void OnDrawItem(int, DRAWITEMSTRUCT*) { Default(); }
    void OnMeasureItem(int, MEASUREITEMSTRUCT*) { Default(); }
    void OnDeleteItem(int, DELETEITEMSTRUCT*) { Default(); }
    int OnCompareItem(int, COMPAREITEMSTRUCT*) { return static_cast<int>(Default()); }
    HBRUSH OnCtlColor(CDC*, CWnd*, UINT) { return reinterpret_cast<HBRUSH>(Default()); }

    // Keys
    UINT OnGetDlgCode() { return static_cast<UINT>(Default()); }
    void OnKeyDown(UINT, UINT, UINT) { Default(); }
    void OnKeyUp(UINT, UINT, UINT) { Default(); }
    void OnChar(UINT, UINT, UINT) { Default(); }
    void OnSysKeyDown(UINT, UINT, UINT) { Default(); }
    void OnSysKeyUp(UINT, UINT, UINT) { Default(); }
    void OnSysChar(UINT, UINT, UINT) { Default(); }

    // Mouse
    void OnMouseMove(UINT, CPoint) { Default(); }
    void OnLButtonDown(UINT, CPoint) { Default(); }
    void OnLButtonUp(UINT, CPoint) { Default(); }
    void OnLButtonDblClk(UINT, CPoint) { Default(); }
    void OnRButtonDown(UINT, CPoint) { Default(); }
    void OnRButtonUp(UINT, CPoint) { Default(); }
    void OnRButtonDblClk(UINT, CPoint) { Default(); }
    void OnMButtonDown(UINT, CPoint) { Default(); }
    void OnMButtonUp(UINT, CPoint) { Default(); }
    void OnMButtonDblClk(UINT, CPoint) { Default(); }
    BOOL OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
    void OnMouseLeave() { Default(); }
    BOOL OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
    int OnMouseActivate(CWnd*, UINT, UINT) { return static_cast<int>(Default()); }
    LRESULT OnNcHitTest(CPoint) { return Default(); }
    void OnCaptureChanged(CWnd*) { Default(); }
    void OnContextMenu(CWnd*, CPoint) { Default(); }

    // Scroll bars, menus, children
    void OnHScroll(UINT, UINT, CScrollBar*) { Default(); }
    void OnVScroll(UINT, UINT, CScrollBar*) { Default(); }
    void OnInitMenu(CMenu*) { Default(); }
    void OnInitMenuPopup(CMenu*, UINT, BOOL) { Default(); }
    void OnMenuSelect(UINT, UINT, HMENU) { Default(); }
    void OnParentNotify(UINT, LPARAM) { Default(); }
};
