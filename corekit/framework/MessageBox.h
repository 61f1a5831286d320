// Message boxes, as far as a program without windows knows them.
//
// The window library, or a test, installs a handler that shows the box. Where there is none, or it cannot show
// anything, the text goes to standard error and the answer is the cautious button of the set: OK where it stands
// alone, else Cancel, No or Abort. Any thread may ask; the handler sees to its own thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class CWnd;

// Buttons, icon and default button, or-ed together.
inline constexpr UINT MB_OK = 0x0, MB_OKCANCEL = 0x1, MB_ABORTRETRYIGNORE = 0x2, MB_YESNOCANCEL = 0x3,
                      MB_YESNO = 0x4, MB_RETRYCANCEL = 0x5;
inline constexpr UINT MB_ICONHAND = 0x10, MB_ICONSTOP = 0x10, MB_ICONERROR = 0x10, MB_ICONQUESTION = 0x20,
                      MB_ICONEXCLAMATION = 0x30, MB_ICONWARNING = 0x30, MB_ICONASTERISK = 0x40,
                      MB_ICONINFORMATION = 0x40;
inline constexpr UINT MB_DEFBUTTON1 = 0x0, MB_DEFBUTTON2 = 0x100, MB_DEFBUTTON3 = 0x200;
inline constexpr UINT MB_APPLMODAL = 0x0, MB_SYSTEMMODAL = 0x1000, MB_TASKMODAL = 0x2000;
inline constexpr UINT MB_TYPEMASK = 0xF, MB_ICONMASK = 0xF0;

// Answers.
inline constexpr int IDOK = 1, IDCANCEL = 2, IDABORT = 3, IDRETRY = 4, IDIGNORE = 5, IDYES = 6, IDNO = 7;

// The answer to a box over `parent`, which may be null; `text` is never null. 0: it could not be shown.
using MessageBoxHandler = int (*)(CWnd* parent, const char* text, UINT flags);
// Returns the handler that was there; null takes the present one away.
COREKIT_API MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler);

// With an id, the text comes from the string table.
COREKIT_API int StockMessageBox(CWnd* parent, const char* text, UINT flags);
COREKIT_API int StockMessageBox(CWnd* parent, UINT textId, UINT flags);
COREKIT_API int AfxMessageBox(const char* text, UINT flags = MB_OK, UINT helpId = 0);
COREKIT_API int AfxMessageBox(UINT textId, UINT flags = MB_OK, UINT helpId = 0);
