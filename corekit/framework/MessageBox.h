// Message boxes, as far as a program without windows knows them.
//
// The window library, or a test, installs a handler that shows the box. Where there is none, or it cannot
// show anything, the text goes to standard error and the answer is the cautious button of the set: OK where
// it stands alone, else Cancel, No or Abort. Any thread may ask; the handler sees to its own thread.
//
//     if (AfxMessageBox("Keep the changes?", MB_YESNO | MB_ICONQUESTION) == IDYES) Save();
//
//     // In a test: answers, and shows nothing.
//     const MessageBoxHandler former = SetMessageBoxHandler([](CWnd*, const char*, UINT) { return IDNO; });
//     ...
//     SetMessageBoxHandler(former);
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class CWnd;

// Buttons, icon and default button, or-ed together.
// MB_OK is the default.
inline constexpr UINT MB_OK = 0x0, MB_OKCANCEL = 0x1, MB_ABORTRETRYIGNORE = 0x2, MB_YESNOCANCEL = 0x3,
                      MB_YESNO = 0x4, MB_RETRYCANCEL = 0x5;
// Icons: stop sign, question mark, exclamation mark, letter i; the names on a line mean the same.
inline constexpr UINT MB_ICONHAND = 0x10, MB_ICONSTOP = 0x10, MB_ICONERROR = 0x10, MB_ICONQUESTION = 0x20,
                      MB_ICONEXCLAMATION = 0x30, MB_ICONWARNING = 0x30, MB_ICONASTERISK = 0x40,
                      MB_ICONINFORMATION = 0x40;
// Which button Enter presses, counted from the left.
inline constexpr UINT MB_DEFBUTTON1 = 0x0, MB_DEFBUTTON2 = 0x100, MB_DEFBUTTON3 = 0x200;
// Accepted; every box keeps its owner's window from input and no other program's.
inline constexpr UINT MB_APPLMODAL = 0x0, MB_SYSTEMMODAL = 0x1000, MB_TASKMODAL = 0x2000;
inline constexpr UINT MB_TYPEMASK = 0xF, MB_ICONMASK = 0xF0; // the bits of the buttons, and of the icon

// Answers. One for each button. Escape and closing the box answer IDCANCEL where there is such a button,
// else the only button or the refusal.
inline constexpr int IDOK = 1, IDCANCEL = 2, IDABORT = 3, IDRETRY = 4, IDIGNORE = 5, IDYES = 6, IDNO = 7;

// The answer to a box over `parent`, which may be null; `text` is never null. 0: it could not be shown.
// Called on the thread that asks. `flags` are MB_ values, or-ed.
using MessageBoxHandler = int (*)(CWnd* parent, const char* text, UINT flags);
// Returns the handler that was there; null takes the present one away. For one that is called meanwhile the
// former may still be at work.
COREKIT_API MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler);

// With an id, the text comes from the string table. Blocks until the user answers; a null text is empty.
// Control characters in a text for standard error are shown in writing.
COREKIT_API int StockMessageBox(CWnd* parent, const char* text, UINT flags);
COREKIT_API int StockMessageBox(CWnd* parent, UINT textId, UINT flags);
// Over the main window, or whatever window of the program is active. `helpId` is not used.
COREKIT_API int AfxMessageBox(const char* text, UINT flags = MB_OK, UINT helpId = 0);
COREKIT_API int AfxMessageBox(UINT textId, UINT flags = MB_OK, UINT helpId = 0);
