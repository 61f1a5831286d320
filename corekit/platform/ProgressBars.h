// The progress bar.
#pragma once

#include "corekit/platform/Controls.h"

inline constexpr DWORD PBS_SMOOTH = 0x1;   // accepted: every bar is
inline constexpr DWORD PBS_VERTICAL = 0x4; // fills upwards
inline constexpr DWORD PBS_MARQUEE = 0x8;  // runs without an end in sight, once PBM_SETMARQUEE starts it

struct PBRANGE {
    int iLow, iHigh;
};

// The range is 0 to 100, the position 0 and the step 10 at first. Positions are held within the range.
inline constexpr UINT PBM_SETRANGE = 0x401; // lParam: both in its words; answers the range before likewise
inline constexpr UINT PBM_SETPOS = 0x402;   // wParam: position; answers the one before, as the next three do
inline constexpr UINT PBM_DELTAPOS = 0x403; // wParam: signed distance
inline constexpr UINT PBM_SETSTEP = 0x404;  // wParam: step
inline constexpr UINT PBM_STEPIT = 0x405;   // one step; behind the end it goes on from the beginning
inline constexpr UINT PBM_SETRANGE32 = 0x406; // wParam, lParam
inline constexpr UINT PBM_GETRANGE = 0x407;   // wParam: lower or upper limit; lParam: PBRANGE*, may be null
inline constexpr UINT PBM_GETPOS = 0x408;
inline constexpr UINT PBM_SETMARQUEE = 0x40A; // wParam: run or stand
inline constexpr UINT PBM_GETSTEP = 0x40D;    // answers the step
