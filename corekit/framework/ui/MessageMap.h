// Rows of message maps.
//
//     class CPane : public CWnd {
//         ...
//         void OnPaint();
//         void OnLButtonDown(UINT flags, CPoint point);
//         void OnFind();
//         void OnUpdateFind(CCmdUI* ui);
//         DECLARE_MESSAGE_MAP()
//     };
//
//     BEGIN_MESSAGE_MAP(CPane, CWnd)
//         ON_WM_PAINT()
//         ON_WM_LBUTTONDOWN()
//         ON_COMMAND(ID_FIND, &CPane::OnFind)
//         ON_UPDATE_COMMAND_UI(ID_FIND, &CPane::OnUpdateFind)
//     END_MESSAGE_MAP()
//
// The name and the arguments of the handler of ON_WM_X stand in MessageMapWindow.h. A row whose handler has
// other arguments does not compile.
//
// Rows stand between BEGIN_MESSAGE_MAP and END_MESSAGE_MAP (CmdTarget.h), without commas. Handlers may be
// private. A handler that has no row is never called; a message without a row goes to the base class, and at
// last to the window's default. Commands whose update handler disables them are not carried out.
#pragma once

#include "corekit/framework/CmdTarget.h"
#include "corekit/framework/ui/MessageMapWindow.h"
#include "corekit/platform/WindowMessages.h"

// ---- One row: message, code, first and last id, kind of call, handler with its exact type.
#define COREKIT_MAP_ROW(message, code, first, last, signature, owner, result, arguments, method)             \
    {message,                                                                                                \
     static_cast<UINT>(code),                                                                                \
     static_cast<UINT>(first),                                                                               \
     static_cast<UINT>(last),                                                                                \
     signature,                                                                                              \
     corekit::detail::storedHandler(static_cast<result(owner::*) arguments>(method))},

// ---- Commands, from menus, keys and bars
// void Method().
#define ON_COMMAND(id, method)                                                                               \
    COREKIT_MAP_ROW(WM_COMMAND, CN_COMMAND, id, id, AfxSigCmd_v, CCmdTarget, void, (), method)
// BOOL Method(UINT id): false lets the next target on the command's way have it.
#define ON_COMMAND_EX(id, method)                                                                            \
    COREKIT_MAP_ROW(WM_COMMAND, CN_COMMAND, id, id, AfxSigCmd_idEx, CCmdTarget, BOOL, (UINT), method)
// void Method(UINT id), for the ids from first to last, both included.
#define ON_COMMAND_RANGE(first, last, method)                                                                \
    COREKIT_MAP_ROW(WM_COMMAND, CN_COMMAND, first, last, AfxSigCmd_id, CCmdTarget, void, (UINT), method)
// BOOL Method(UINT id) for a range.
#define ON_COMMAND_EX_RANGE(first, last, method)                                                             \
    COREKIT_MAP_ROW(WM_COMMAND, CN_COMMAND, first, last, AfxSigCmd_idEx, CCmdTarget, BOOL, (UINT), method)
// void Method(CCmdUI*): enables, checks and names the items of the command.
#define ON_UPDATE_COMMAND_UI(id, method)                                                                     \
    COREKIT_MAP_ROW(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, id, AfxSigCmd_ui, CCmdTarget, void, (CCmdUI*),     \
                    method)
// m_nID of the item says which of the range is meant.
#define ON_UPDATE_COMMAND_UI_RANGE(first, last, method)                                                      \
    COREKIT_MAP_ROW(WM_COMMAND, CN_UPDATE_COMMAND_UI, first, last, AfxSigCmd_ui, CCmdTarget, void,           \
                    (CCmdUI*), method)

// ---- Notifications of child windows: `code` is BN_CLICKED, EN_CHANGE, LVN_ITEMCHANGED and so on
// void Method(), for a code that arrives by WM_COMMAND.
#define ON_CONTROL(code, id, method)                                                                         \
    COREKIT_MAP_ROW(WM_COMMAND, code, id, id, AfxSigCmd_v, CCmdTarget, void, (), method)
// void Method(UINT id), for controls of several ids.
#define ON_CONTROL_RANGE(code, first, last, method)                                                          \
    COREKIT_MAP_ROW(WM_COMMAND, code, first, last, AfxSigCmd_id, CCmdTarget, void, (UINT), method)
// void Method(NMHDR*, LRESULT*), for a code that arrives by WM_NOTIFY. Cast the header to the structure of
// the code; the result is what the control gets back.
#define ON_NOTIFY(code, id, method)                                                                          \
    COREKIT_MAP_ROW(WM_NOTIFY, static_cast<WORD>(static_cast<int>(code)), id, id, AfxSigCmd_notify,          \
                    CCmdTarget, void, (NMHDR*, LRESULT*), method)
// BOOL Method(UINT id, NMHDR*, LRESULT*): false lets the next target have it.
#define ON_NOTIFY_EX(code, id, method)                                                                       \
    COREKIT_MAP_ROW(WM_NOTIFY, static_cast<WORD>(static_cast<int>(code)), id, id, AfxSigCmd_notifyEx,        \
                    CCmdTarget, BOOL, (UINT, NMHDR*, LRESULT*), method)
// void Method(UINT id, NMHDR*, LRESULT*).
#define ON_NOTIFY_RANGE(code, first, last, method)                                                           \
    COREKIT_MAP_ROW(WM_NOTIFY, static_cast<WORD>(static_cast<int>(code)), first, last, AfxSigCmd_notifyId,   \
                    CCmdTarget, void, (UINT, NMHDR*, LRESULT*), method)

// Codes of the older controls by name, void Method() each. Several controls share numbers, so the id counts.
#define ON_BN_CLICKED(id, method) ON_CONTROL(0, id, method)
#define ON_BN_DOUBLECLICKED(id, method) ON_CONTROL(5, id, method) // with BS_NOTIFY
#define ON_EN_SETFOCUS(id, method) ON_CONTROL(0x100, id, method)
#define ON_EN_KILLFOCUS(id, method) ON_CONTROL(0x200, id, method)
#define ON_EN_CHANGE(id, method) ON_CONTROL(0x300, id, method) // the text on show is another
#define ON_EN_UPDATE(id, method) ON_CONTROL(0x400, id, method) // just before that
#define ON_LBN_SELCHANGE(id, method) ON_CONTROL(1, id, method) // by the user, with LBS_NOTIFY
#define ON_LBN_DBLCLK(id, method) ON_CONTROL(2, id, method)
#define ON_CBN_SELCHANGE(id, method) ON_CONTROL(1, id, method) // by the user
#define ON_CBN_DBLCLK(id, method) ON_CONTROL(2, id, method)
#define ON_CBN_SETFOCUS(id, method) ON_CONTROL(3, id, method)
#define ON_CBN_KILLFOCUS(id, method) ON_CONTROL(4, id, method)
#define ON_CBN_EDITCHANGE(id, method) ON_CONTROL(5, id, method) // text has been entered
#define ON_CBN_DROPDOWN(id, method) ON_CONTROL(7, id, method)   // the list opens
#define ON_CBN_CLOSEUP(id, method) ON_CONTROL(8, id, method)    // the list has closed
#define ON_CBN_SELENDOK(id, method) ON_CONTROL(9, id, method)   // a row has been chosen, the same one as well

// ---- Any message: LRESULT Method(WPARAM, LPARAM). A registered message is named by the variable that holds
// its number.
#define ON_MESSAGE(message, method)                                                                          \
    COREKIT_MAP_ROW(message, 0, 0, 0, AfxSig_message, CWnd, LRESULT, (WPARAM, LPARAM), method)
// The variable gets its number from RegisterWindowMessageA, and is read whenever a message of that range
// arrives.
#define ON_REGISTERED_MESSAGE(variable, method)                                                              \
    COREKIT_MAP_ROW(0xC000, 0, 0, 0, reinterpret_cast<UINT_PTR>(&variable), CWnd, LRESULT, (WPARAM, LPARAM), \
                    method)

// ---- Reflection: a control handles what it told its parent. The _EX forms answer whether the parent is to
// be left out. void Method() of the control's class.
#define ON_CONTROL_REFLECT(code, method)                                                                     \
    COREKIT_MAP_ROW(WM_COMMAND + WM_REFLECT_BASE, code, 0, 0, AfxSigCmd_v, CCmdTarget, void, (), method)
// BOOL Method().
#define ON_CONTROL_REFLECT_EX(code, method)                                                                  \
    COREKIT_MAP_ROW(WM_COMMAND + WM_REFLECT_BASE, code, 0, 0, AfxSigCmd_b, CCmdTarget, BOOL, (), method)
// void Method(NMHDR*, LRESULT*).
#define ON_NOTIFY_REFLECT(code, method)                                                                      \
    COREKIT_MAP_ROW(WM_NOTIFY + WM_REFLECT_BASE, static_cast<WORD>(static_cast<int>(code)), 0, 0,            \
                    AfxSigCmd_notify, CCmdTarget, void, (NMHDR*, LRESULT*), method)
// BOOL Method(NMHDR*, LRESULT*).
#define ON_NOTIFY_REFLECT_EX(code, method)                                                                   \
    COREKIT_MAP_ROW(WM_NOTIFY + WM_REFLECT_BASE, static_cast<WORD>(static_cast<int>(code)), 0, 0,            \
                    AfxSigCmd_notifyBool, CCmdTarget, BOOL, (NMHDR*, LRESULT*), method)
// void Method(CCmdUI*): a control sets its own state.
#define ON_UPDATE_COMMAND_UI_REFLECT(method)                                                                 \
    COREKIT_MAP_ROW(WM_COMMAND + WM_REFLECT_BASE, CN_UPDATE_COMMAND_UI, 0, 0, AfxSigCmd_ui, CCmdTarget,      \
                    void, (CCmdUI*), method)
