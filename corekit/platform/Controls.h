// What the controls have in common: the names of their window classes, and the notifications that all of the
// newer ones send.
//
// A control is a child window that is made by CreateWindowExA with one of these class names. The toolkit
// draws it, reads it out and gives it the look of the theme; the messages in Buttons.h, Edits.h, ListBoxes.h
// and so on work on it. The older controls tell their parent what happened by WM_COMMAND, the newer ones by
// WM_NOTIFY.
//
// Text: narrow text is in the active code page. Where a message has a twin whose name ends in W, that one
// takes wide text; a name without a letter is the narrow form, or the wide one when it is sent by
// SendMessageW. The text of a control itself goes by SetWindowTextW, too.
//
// Colours, fonts at the beginning and sizes of parts follow the theme. User-interface thread only.
#pragma once

#include "corekit/platform/Types.h"
#include "corekit/platform/WindowMessages.h"

inline constexpr char WC_STATICA[] = "STATIC";
inline constexpr char WC_BUTTONA[] = "BUTTON";
inline constexpr char WC_EDITA[] = "EDIT";
inline constexpr char WC_LISTBOXA[] = "LISTBOX";
inline constexpr char WC_COMBOBOXA[] = "COMBOBOX";
inline constexpr char WC_SCROLLBARA[] = "SCROLLBAR";
inline constexpr char WC_TREEVIEWA[] = "SysTreeView32";
inline constexpr char WC_LISTVIEWA[] = "SysListView32";
inline constexpr char WC_HEADERA[] = "SysHeader32";
inline constexpr char WC_TABCONTROLA[] = "SysTabControl32";
inline constexpr char PROGRESS_CLASSA[] = "msctls_progress32";
inline constexpr char HOTKEY_CLASSA[] = "msctls_hotkey32";
inline constexpr char UPDOWN_CLASSA[] = "msctls_updown32";
inline constexpr char TOOLTIPS_CLASSA[] = "tooltips_class32";
inline constexpr char STATUSCLASSNAMEA[] = "msctls_statusbar32";

// Codes of WM_NOTIFY that carry an NMHDR and nothing else, unless the control's own header says more.
inline constexpr UINT NM_CLICK = 0u - 2;
inline constexpr UINT NM_DBLCLK = 0u - 3;
inline constexpr UINT NM_RETURN = 0u - 4;
inline constexpr UINT NM_RCLICK = 0u - 5;
inline constexpr UINT NM_RDBLCLK = 0u - 6;
inline constexpr UINT NM_SETFOCUS = 0u - 7;
inline constexpr UINT NM_KILLFOCUS = 0u - 8;

// In a text pointer: the parent gives the text, when it is needed, in answer to a notification.
inline char* const LPSTR_TEXTCALLBACKA = reinterpret_cast<char*>(static_cast<LONG_PTR>(-1));
inline char* const LPSTR_TEXTCALLBACK = LPSTR_TEXTCALLBACKA;

// Styles of the bars at a window's edge.
inline constexpr DWORD CCS_TOP = 1;
inline constexpr DWORD CCS_NOPARENTALIGN = 8; // stays where it is put
inline constexpr DWORD CCS_BOTTOM = 3;
