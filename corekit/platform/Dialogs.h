// Dialogs: windows that are made from a template and speak the language of keys that dialogs have.
//
// Tab and Shift+Tab go round the controls with WS_TABSTOP, arrow keys round a group, which begins at a
// control with WS_GROUP; an underlined letter goes to its control; Enter presses the default button, Escape
// is IDCANCEL. A control that wants a key for itself says so in its answer to WM_GETDLGCODE. Where the user's
// language is written from right to left, a dialog shows its mirror image.
//
// User-interface thread only; another thread gets null or -1 and error 5.
#pragma once

#include "corekit/platform/DialogTemplate.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Windows.h"

using INT_PTR = LONG_PTR;

// Gets each message of its dialog first. Nonzero: it is dealt with, and the answer is what SetWindowLongPtrA
// put into DWLP_MSGRESULT; of WM_INITDIALOG, WM_CTLCOLOR..., WM_COMPAREITEM the result is the answer itself.
// In WM_INITDIALOG nonzero gives the focus to the first control, 0 leaves it where it has been set.
using DLGPROC = INT_PTR (*)(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

inline constexpr char WC_DIALOG[] = "#32770"; // the class of dialogs; its procedure is DefDlgProcA
inline constexpr int DWLP_MSGRESULT = 0, DWLP_DLGPROC = 8, DWLP_USER = 16, DLGWINDOWEXTRA = 24;

inline constexpr UINT DM_GETDEFID = WM_USER; // low word: id of the default button; high word DC_HASDEFID or 0
inline constexpr UINT DM_SETDEFID = WM_USER + 1; // wParam: id
inline constexpr WORD DC_HASDEFID = 0x534B;

// ---- Life ---------------------------------------------------------------------------------------

// Makes a dialog that lives beside the others. Shown if the template has WS_VISIBLE. Null if a window could
// not be made.
COREKIT_API HWND CreateDialogIndirectParamA(HINSTANCE instance, const DialogTemplate* dialog, HWND owner,
                                            DLGPROC procedure, LPARAM parameter);
// Lets the loop of a modal dialog end, from within any of its messages. False for what is no modal dialog.
COREKIT_API BOOL EndDialog(HWND dialog, INT_PTR result);
// What a dialog does with a message that its own procedure does not want.
COREKIT_API LRESULT DefDlgProcA(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// ---- Keys ---------------------------------------------------------------------------------------

// Offers a message of the queued kind to the dialog if it is for one of its windows: true if it was a key
// that a dialog takes, and is dealt with.
COREKIT_API BOOL IsDialogMessageA(HWND dialog, MSG* message);
// The control that Tab, or an arrow key within a group, goes to from `control` (null: the first or the last).
COREKIT_API HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
COREKIT_API HWND GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);

// ---- Units --------------------------------------------------------------------------------------

COREKIT_API LONG GetDialogBaseUnits(); // low word: 4 horizontal units in pixels; high word: 8 vertical ones
COREKIT_API BOOL MapDialogRect(HWND dialog, RECT* rect); // from units to pixels

// ---- Controls by number. 0 or -1 where there is none of that id. ---------------------------------

COREKIT_API LRESULT SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam);
COREKIT_API BOOL CheckDlgButton(HWND dialog, int id, UINT state); // BST_
COREKIT_API UINT IsDlgButtonChecked(HWND dialog, int id);

namespace corekit::detail {
// Shows a dialog that has been made, keeps its owner's top window disabled, and returns EndDialog's result,
// or -1 for what is no dialog; the dialog stays. Where nobody can see windows it is closed at once, and gives
// what closing it gives.
COREKIT_API INT_PTR runModalDialog(HWND dialog);
} // namespace corekit::detail
