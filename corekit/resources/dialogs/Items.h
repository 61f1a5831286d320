// What the tables of dialogs are written with: one line a control.
#pragma once

#include "corekit/platform/Buttons.h"
#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/Controls.h"
#include "corekit/platform/DialogTemplate.h"
#include "corekit/platform/Edits.h"
#include "corekit/platform/HotKeys.h"
#include "corekit/platform/ListBoxes.h"
#include "corekit/platform/ProgressBars.h"
#include "corekit/platform/Statics.h"
#include "corekit/platform/UpDowns.h"

namespace corekit::detail::dialogs {

struct Place {
    int x, y, width, height;
};

inline constexpr int noId = -1;
inline constexpr DWORD group = WS_GROUP; // begins a group of radio buttons
inline constexpr DWORD wraps = BS_MULTILINE;

// Frames: a box that is answered, one that stands by, and a page of a sheet.
inline constexpr DWORD modal = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
inline constexpr DWORD standing = WS_POPUP | WS_CAPTION | WS_VISIBLE | DS_MODALFRAME;
inline constexpr DWORD page = WS_CHILD | DS_CONTROL;

constexpr DialogItem item(const char* windowClass, int id, const char* text, Place p, DWORD style)
{
    return {windowClass, text, id, p.x, p.y, p.width, p.height, style | WS_CHILD | WS_VISIBLE};
}
constexpr DialogItem label(const char* text, Place p, int id = noId, DWORD style = SS_LEFT)
{
    return item(WC_STATICA, id, text, p, style);
}
// What a screen reader calls the control behind it, where nothing on the screen says so.
constexpr DialogItem name(const char* text) { return {WC_STATICA, text, noId, 0, 0, 0, 0, WS_CHILD}; }
constexpr DialogItem icon(int id, Place p) { return item(WC_STATICA, id, "", p, SS_ICON | SS_CENTERIMAGE); }
constexpr DialogItem picture(int id, Place p)
{
    return item(WC_STATICA, id, "", p, SS_BITMAP | SS_CENTERIMAGE);
}
constexpr DialogItem button(int id, const char* text, Place p, DWORD style = 0)
{
    return item(WC_BUTTONA, id, text, p, BS_PUSHBUTTON | WS_TABSTOP | style);
}
constexpr DialogItem defaultButton(int id, const char* text, Place p, DWORD style = 0)
{
    return item(WC_BUTTONA, id, text, p, BS_DEFPUSHBUTTON | WS_TABSTOP | style);
}
constexpr DialogItem check(int id, const char* text, Place p)
{
    return item(WC_BUTTONA, id, text, p, BS_AUTOCHECKBOX | WS_TABSTOP | WS_GROUP);
}
constexpr DialogItem radio(int id, const char* text, Place p, DWORD style = 0)
{
    return item(WC_BUTTONA, id, text, p, BS_AUTORADIOBUTTON | WS_TABSTOP | style);
}
constexpr DialogItem box(const char* text, Place p)
{
    return item(WC_BUTTONA, noId, text, p, BS_GROUPBOX | WS_GROUP);
}
constexpr DialogItem edit(int id, Place p, DWORD style = 0)
{
    return item(WC_EDITA, id, "", p, ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP | WS_GROUP | style);
}
constexpr DialogItem list(int id, Place p, DWORD style = 0)
{
    return item(WC_LISTBOXA, id, "", p, LBS_NOTIFY | WS_VSCROLL | WS_BORDER | WS_TABSTOP | style);
}
constexpr DialogItem choice(int id, Place p, DWORD style = CBS_DROPDOWNLIST)
{
    return item(WC_COMBOBOXA, id, "", p, WS_VSCROLL | WS_TABSTOP | style);
}
constexpr DialogItem spin(int id, Place p)
{
    return item(UPDOWN_CLASSA, id, "", p, UDS_ARROWKEYS | UDS_NOTHOUSANDS);
}
constexpr DialogItem bar(int id, Place p) { return item(PROGRESS_CLASSA, id, "", p, PBS_SMOOTH); }

} // namespace corekit::detail::dialogs
