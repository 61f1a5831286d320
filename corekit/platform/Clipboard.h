// The clipboard, shared with all programs of the display.
//
// Open, read or fill, close:
//
//     if (OpenClipboard(window)) {
//         EmptyClipboard();
//         SetClipboardData(CF_UNICODETEXT, block);
//         CloseClipboard();
//     }
//
// What was set goes out at CloseClipboard. Text in one of the two text formats can be read in the other as
// well. Blocks are global memory (Memory.h): what is set belongs to the clipboard from then on, what is got
// stays the clipboard's and is good until it is closed. User-interface thread.
//
// What another program holds is as if it were not there while that program does not say within a quarter of
// a second what it has, or gives nothing for a second; so is what takes longer than ten seconds to come or is
// larger than 64 MiB.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

inline constexpr UINT CF_TEXT = 1;         // active code page, zero at the end
inline constexpr UINT CF_UNICODETEXT = 13; // UTF-16, zero at the end

// The number of a private format, 0xC000 to 0xFFFF; one name is one number, without regard to case. 0 when
// all are taken.
COREKIT_API UINT RegisterClipboardFormatA(const char* name);

// 0 with error 5 while it is open already. The window may be null; it becomes the owner at EmptyClipboard.
COREKIT_API BOOL OpenClipboard(HWND window);
COREKIT_API BOOL CloseClipboard();
COREKIT_API BOOL EmptyClipboard();
// The block, null on failure; then it still is the caller's.
COREKIT_API HGLOBAL SetClipboardData(UINT format, HGLOBAL block);
// Null if the clipboard is not open, or nothing of that format is there.
COREKIT_API HGLOBAL GetClipboardData(UINT format);
COREKIT_API BOOL IsClipboardFormatAvailable(UINT format); // need not be open

// The primary selection of an X display: what is selected right now, pasted with the middle button. 0 where
// there is none.
COREKIT_API BOOL SetSelectionText(const WCHAR* text, int count);
