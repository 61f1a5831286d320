// How a shell speaks with the applets in a library: it exports "CPlApplet".
//
// The order is CPL_INIT, CPL_GETCOUNT, CPL_INQUIRE for each applet, CPL_DBLCLK whenever the user opens one,
// and CPL_EXIT before the library goes.
#pragma once

#include "corekit/platform/Types.h"

inline constexpr UINT CPL_INIT = 1;     // nonzero for success
inline constexpr UINT CPL_GETCOUNT = 2; // how many applets there are
inline constexpr UINT CPL_INQUIRE = 3;  // lParam1: which; lParam2: CPLINFO* to fill
inline constexpr UINT CPL_DBLCLK = 5;   // lParam1: which
inline constexpr UINT CPL_EXIT = 7;

// Numbers of resources: an icon and two texts.
struct CPLINFO {
    int idIcon;
    int idName;
    int idInfo;
    LONG_PTR lData;
};

using APPLET_PROC = LONG (*)(HWND parent, UINT message, LPARAM lParam1, LPARAM lParam2);
