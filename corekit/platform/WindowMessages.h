// The numbers of window messages, and the structures that they carry.
//
// Beside each number stands what wParam and lParam hold. Points are packed with x in the low and y in the
// high 16 bits, both signed.
#pragma once

#include "corekit/platform/Types.h"

// ---- The life of a window
inline constexpr UINT WM_NULL = 0x0000;    // nothing; wakes a loop
inline constexpr UINT WM_CREATE = 0x0001;  // lParam: CREATESTRUCTA; -1 stops the creation
inline constexpr UINT WM_DESTROY = 0x0002; // the window still has its children
inline constexpr UINT WM_MOVE = 0x0003;    // lParam: client origin, in the parent's client area or the screen
inline constexpr UINT WM_SIZE = 0x0005;    // wParam: SIZE_; lParam: client width and height
inline constexpr UINT WM_ACTIVATE = 0x0006;        // LOWORD(wParam): WA_; lParam: the other window
inline constexpr UINT WM_SETFOCUS = 0x0007;        // wParam: the window that loses it
inline constexpr UINT WM_KILLFOCUS = 0x0008;       // wParam: the window that gets it
inline constexpr UINT WM_ENABLE = 0x000A;          // wParam: whether enabled
inline constexpr UINT WM_SETREDRAW = 0x000B;       // wParam: whether changes show
inline constexpr UINT WM_SETTEXT = 0x000C;         // lParam: const char*
inline constexpr UINT WM_GETTEXT = 0x000D;         // wParam: bytes, lParam: char*
inline constexpr UINT WM_GETTEXTLENGTH = 0x000E;   // answers bytes, without the terminator
inline constexpr UINT WM_PAINT = 0x000F;           // the window is to draw itself (Painting.h)
inline constexpr UINT WM_CLOSE = 0x0010;           // the user wants it to go; by default it is destroyed
inline constexpr UINT WM_QUERYENDSESSION = 0x0011; // not sent here
inline constexpr UINT WM_QUIT = 0x0012;            // wParam: exit code
inline constexpr UINT WM_ERASEBKGND = 0x0014;      // wParam: HDC; nonzero: done
inline constexpr UINT WM_SYSCOLORCHANGE = 0x0015;  // to top windows, when the desktop's colours change
inline constexpr UINT WM_ENDSESSION = 0x0016;      // not sent here
inline constexpr UINT WM_SHOWWINDOW = 0x0018;      // wParam: whether shown
inline constexpr UINT WM_SETTINGCHANGE = 0x001A;   // not sent here
inline constexpr UINT WM_ACTIVATEAPP = 0x001C;     // wParam: whether the program becomes active
inline constexpr UINT WM_CANCELMODE = 0x001F;      // let go of capture and menus
inline constexpr UINT WM_SETCURSOR = 0x0020;       // wParam: window; lParam: HT code, mouse message
inline constexpr UINT WM_MOUSEACTIVATE = 0x0021;   // wParam: top window; lParam: HT code, mouse message
inline constexpr UINT WM_GETMINMAXINFO = 0x0024;   // lParam: MINMAXINFO
inline constexpr UINT WM_NEXTDLGCTL = 0x0028; // wParam: control or direction; lParam: whether it is a control
inline constexpr UINT WM_DRAWITEM = 0x002B;   // wParam: id; lParam: DRAWITEMSTRUCT
inline constexpr UINT WM_MEASUREITEM = 0x002C;            // wParam: id; lParam: MEASUREITEMSTRUCT
inline constexpr UINT WM_DELETEITEM = 0x002D;             // wParam: id; lParam: DELETEITEMSTRUCT
inline constexpr UINT WM_SETFONT = 0x0030;                // wParam: HFONT; lParam: whether to redraw
inline constexpr UINT WM_GETFONT = 0x0031;                // answers HFONT, not owned
inline constexpr UINT WM_COMPAREITEM = 0x0039;            // wParam: id; lParam: COMPAREITEMSTRUCT
inline constexpr UINT WM_WINDOWPOSCHANGING = 0x0046;      // lParam: WINDOWPOS, which may be changed
inline constexpr UINT WM_WINDOWPOSCHANGED = 0x0047;       // lParam: WINDOWPOS
inline constexpr UINT WM_COPYDATA = 0x004A;               // not sent here
inline constexpr UINT WM_NOTIFY = 0x004E;                 // wParam: id; lParam: NMHDR
inline constexpr UINT WM_INPUTLANGCHANGEREQUEST = 0x0050; // lParam: HKL
inline constexpr UINT WM_INPUTLANGCHANGE = 0x0051;        // wParam: character set; lParam: HKL
inline constexpr UINT WM_HELP = 0x0053;                   // not sent here
inline constexpr UINT WM_CONTEXTMENU = 0x007B; // wParam: window; lParam: screen point, -1 from the keyboard
inline constexpr UINT WM_GETICON = 0x007F, WM_SETICON = 0x0080; // wParam: ICON_; lParam: HICON
inline constexpr UINT WM_NCCREATE = 0x0081;                     // lParam: CREATESTRUCTA; 0 stops the creation
inline constexpr UINT WM_NCDESTROY = 0x0082;                    // the last one
// Only WM_NCHITTEST is sent: lParam: screen point; answers HT.
inline constexpr UINT WM_NCCALCSIZE = 0x0083, WM_NCHITTEST = 0x0084, WM_NCPAINT = 0x0085,
                      WM_NCACTIVATE = 0x0086;
inline constexpr UINT WM_GETDLGCODE = 0x0087; // answers DLGC_; lParam: MSG or null

// ---- Keyboard: wParam is the virtual key or the character; lParam has the repeat count in bits 0 to 15, the
// scan code in 16 to 23, bit 24 for keys that send a prefix, 29 while Alt is down, 30 if the key was down
// before, 31 when it comes up.
inline constexpr UINT WM_KEYFIRST = 0x0100;
inline constexpr UINT WM_KEYDOWN = 0x0100, WM_KEYUP = 0x0101;
inline constexpr UINT WM_CHAR = 0x0102;     // bit 31 of wParam: a UTF-16 unit, final
inline constexpr UINT WM_DEADCHAR = 0x0103; // not sent here: accents arrive with their letter
inline constexpr UINT WM_SYSKEYDOWN = 0x0104, WM_SYSKEYUP = 0x0105; // with Alt held, and F10
inline constexpr UINT WM_SYSCHAR = 0x0106, WM_SYSDEADCHAR = 0x0107;
inline constexpr UINT WM_KEYLAST = 0x0109;
inline constexpr UINT WM_IME_CHAR = 0x0286;

// ---- Commands and what windows tell each other
inline constexpr UINT WM_INITDIALOG = 0x0110;    // wParam: window that would get the focus; lParam: parameter
inline constexpr UINT WM_COMMAND = 0x0111;       // wParam: id, notification code; lParam: control or null
inline constexpr UINT WM_SYSCOMMAND = 0x0112;    // wParam: SC_
inline constexpr UINT WM_TIMER = 0x0113;         // wParam: id; lParam: TIMERPROC
inline constexpr UINT WM_HSCROLL = 0x0114;       // wParam: SB_ code, position; lParam: control or null
inline constexpr UINT WM_VSCROLL = 0x0115;       // the same
inline constexpr UINT WM_INITMENU = 0x0116;      // wParam: HMENU
inline constexpr UINT WM_INITMENUPOPUP = 0x0117; // wParam: HMENU; lParam: index in its bar
inline constexpr UINT WM_MENUSELECT = 0x011F;    // wParam: id or index, MF_ flags; lParam: HMENU
inline constexpr UINT WM_MENUCHAR = 0x0120;      // not sent here, as the next one
inline constexpr UINT WM_ENTERIDLE = 0x0121;     // not sent here
inline constexpr UINT WM_UNINITMENUPOPUP = 0x0125; // wParam: HMENU
// Not sent here.
inline constexpr UINT WM_CHANGEUISTATE = 0x0127, WM_UPDATEUISTATE = 0x0128, WM_QUERYUISTATE = 0x0129;
// Asked of the parent before a control draws itself; wParam: HDC, lParam: control; answers a brush.
inline constexpr UINT WM_CTLCOLORMSGBOX = 0x0132, WM_CTLCOLOREDIT = 0x0133, WM_CTLCOLORLISTBOX = 0x0134,
                      WM_CTLCOLORBTN = 0x0135, WM_CTLCOLORDLG = 0x0136, WM_CTLCOLORSCROLLBAR = 0x0137,
                      WM_CTLCOLORSTATIC = 0x0138;
inline constexpr UINT WM_PARENTNOTIFY = 0x0210; // wParam: message, id; lParam: child or point
inline constexpr UINT WM_ENTERMENULOOP = 0x0211, WM_EXITMENULOOP = 0x0212; // a menu opens, and has closed
inline constexpr UINT WM_SIZING = 0x0214;         // wParam: WMSZ_; lParam: RECT, which may be changed
inline constexpr UINT WM_CAPTURECHANGED = 0x0215; // lParam: the window that has it now
inline constexpr UINT WM_MOVING = 0x0216;         // lParam: RECT, which may be changed
inline constexpr UINT WM_ENTERSIZEMOVE = 0x0231, WM_EXITSIZEMOVE = 0x0232; // around a drag of the frame
inline constexpr UINT WM_DROPFILES = 0x0233;                               // wParam: HDROP

// ---- Mouse: wParam has the MK_ flags, lParam the point in the client area.
inline constexpr UINT WM_MOUSEFIRST = 0x0200;
inline constexpr UINT WM_MOUSEMOVE = 0x0200; // points are signed, and outside of the window with capture
inline constexpr UINT WM_LBUTTONDOWN = 0x0201, WM_LBUTTONUP = 0x0202, WM_LBUTTONDBLCLK = 0x0203;
inline constexpr UINT WM_RBUTTONDOWN = 0x0204, WM_RBUTTONUP = 0x0205, WM_RBUTTONDBLCLK = 0x0206;
inline constexpr UINT WM_MBUTTONDOWN = 0x0207, WM_MBUTTONUP = 0x0208, WM_MBUTTONDBLCLK = 0x0209;
inline constexpr UINT WM_MOUSEWHEEL = 0x020A; // HIWORD(wParam): 120 a notch, up positive; screen point
inline constexpr UINT WM_XBUTTONDOWN = 0x020B, WM_XBUTTONUP = 0x020C, WM_XBUTTONDBLCLK = 0x020D;
inline constexpr UINT WM_MOUSEHWHEEL = 0x020E; // the same, right positive
inline constexpr UINT WM_MOUSELAST = 0x020E;
// The mouse where WM_NCHITTEST answers other than HTCLIENT. wParam: HT code; lParam: screen point.
inline constexpr UINT WM_NCMOUSEMOVE = 0x00A0, WM_NCLBUTTONDOWN = 0x00A1, WM_NCLBUTTONUP = 0x00A2,
                      WM_NCLBUTTONDBLCLK = 0x00A3, WM_NCRBUTTONDOWN = 0x00A4, WM_NCRBUTTONUP = 0x00A5;
inline constexpr UINT WM_MOUSEHOVER = 0x02A1, WM_MOUSELEAVE = 0x02A3; // asked for with TrackMouseEvent

// ---- Clipboard and the rest
// To a field: by way of the clipboard.
inline constexpr UINT WM_CUT = 0x0300, WM_COPY = 0x0301, WM_PASTE = 0x0302, WM_CLEAR = 0x0303,
                      WM_UNDO = 0x0304;
inline constexpr UINT WM_DESTROYCLIPBOARD = 0x0307; // another has taken the clipboard's place
inline constexpr UINT WM_PRINTCLIENT = 0x0318;      // wParam: HDC
inline constexpr UINT WM_USER = 0x0400;             // from here on messages mean what the window says
inline constexpr UINT WM_APP = 0x8000;              // and from here on what the program says

// ---- Values in messages
// How a window has its size; who made it active; what WM_MOUSEACTIVATE answers, EAT dropping the click.
inline constexpr WPARAM SIZE_RESTORED = 0, SIZE_MINIMIZED = 1, SIZE_MAXIMIZED = 2;
inline constexpr WORD WA_INACTIVE = 0, WA_ACTIVE = 1, WA_CLICKACTIVE = 2;
inline constexpr int MA_ACTIVATE = 1, MA_ACTIVATEANDEAT = 2, MA_NOACTIVATE = 3, MA_NOACTIVATEANDEAT = 4;
// What is held down.
inline constexpr UINT MK_LBUTTON = 0x1, MK_RBUTTON = 0x2, MK_SHIFT = 0x4, MK_CONTROL = 0x8, MK_MBUTTON = 0x10;
inline constexpr int WHEEL_DELTA = 120; // one notch
// What lies at a point of a window. HTTRANSPARENT and HTNOWHERE count as the client area.
inline constexpr int HTERROR = -2, HTTRANSPARENT = -1, HTNOWHERE = 0, HTCLIENT = 1, HTCAPTION = 2;
inline constexpr int HTHSCROLL = 6, HTVSCROLL = 7, HTBORDER = 18;
// Which keys a control keeps from its dialog, and what it is.
inline constexpr UINT DLGC_WANTARROWS = 0x1, DLGC_WANTTAB = 0x2, DLGC_WANTALLKEYS = 0x4,
                      DLGC_WANTMESSAGE = 0x4, DLGC_HASSETSEL = 0x8, DLGC_DEFPUSHBUTTON = 0x10,
                      DLGC_UNDEFPUSHBUTTON = 0x20, DLGC_RADIOBUTTON = 0x40, DLGC_WANTCHARS = 0x80,
                      DLGC_STATIC = 0x100, DLGC_BUTTON = 0x2000;
// What the user asked of a window's frame.
inline constexpr UINT SC_CLOSE = 0xF060, SC_KEYMENU = 0xF100, SC_MINIMIZE = 0xF020, SC_MAXIMIZE = 0xF030,
                      SC_RESTORE = 0xF120;
inline constexpr WPARAM ICON_SMALL = 0, ICON_BIG = 1; // both are kept and given back

// A character message whose wParam has this bit set holds a final UTF-16 unit in its low word.
inline constexpr WPARAM finalCharacterBit = 0x80000000;

// ---- Structures
// What CreateWindowExA was given.
struct CREATESTRUCTA {
    void* lpCreateParams; // the last argument
    HINSTANCE hInstance;
    struct HMENU__* hMenu; // of a child its id
    HWND hwndParent;       // parent or owner
    int cy, cx, y, x;      // pixels
    LONG style;
    const char* lpszName;
    const char* lpszClass;
    DWORD dwExStyle; // WS_EX_
};
// Begins each structure of WM_NOTIFY.
struct NMHDR {
    HWND hwndFrom;   // the control
    UINT_PTR idFrom; // its id
    UINT code;       // what has happened
};
struct WINDOWPOS {
    HWND hwnd, hwndInsertAfter; // in the order of siblings
    int x, y, cx, cy;
    UINT flags; // SWP_
};
// Limits of a top window with WS_THICKFRAME, its frame included, in pixels.
struct MINMAXINFO {
    POINT ptReserved, ptMaxSize, ptMaxPosition, ptMinTrackSize, ptMaxTrackSize; // only the last two count
};

// Owner-drawn items. CtlType: ODT_, itemAction: ODA_, itemState: ODS_.
inline constexpr UINT ODT_MENU = 1, ODT_LISTBOX = 2, ODT_COMBOBOX = 3, ODT_BUTTON = 4, ODT_STATIC = 5,
                      ODT_HEADER = 100, ODT_TAB = 101, ODT_LISTVIEW = 102;
inline constexpr UINT ODA_DRAWENTIRE = 1, ODA_SELECT = 2, ODA_FOCUS = 4;
inline constexpr UINT ODS_SELECTED = 0x1, ODS_GRAYED = 0x2, ODS_DISABLED = 0x4, ODS_CHECKED = 0x8,
                      ODS_FOCUS = 0x10, ODS_DEFAULT = 0x20, ODS_COMBOBOXEDIT = 0x1000;
struct DRAWITEMSTRUCT {
    UINT CtlType, CtlID, itemID, itemAction, itemState;
    HWND hwndItem; // for a menu the HMENU
    HDC hDC;
    RECT rcItem;       // in units of the context
    UINT_PTR itemData; // the item's own value
};
// The parent fills in width and height, in pixels.
struct MEASUREITEMSTRUCT {
    UINT CtlType, CtlID, itemID, itemWidth, itemHeight;
    UINT_PTR itemData;
};
// Answered by below 0, 0 or above 0 for the order of the two.
struct COMPAREITEMSTRUCT {
    UINT CtlType, CtlID;
    HWND hwndItem;
    UINT itemID1; // 0xFFFFFFFF: only the data say which
    UINT_PTR itemData1;
    UINT itemID2;
    UINT_PTR itemData2;
    DWORD dwLocaleId; // 0
};
// An item of the owner's that goes.
struct DELETEITEMSTRUCT {
    UINT CtlType, CtlID, itemID;
    HWND hwndItem;
    UINT_PTR itemData;
};
