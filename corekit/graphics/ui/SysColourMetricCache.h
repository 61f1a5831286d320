// CSysColourMetricCache: the system's colours, measures and cursors as fields that paint code reads.
//
// There is one record for the process. It holds nothing but null cursors until the first
// UpdateSysColourMetricCache; a host calls that again when the colours of the desktop change. User-interface
// thread.
#pragma once

#include "corekit/framework/Object.h"

class COREKIT_API CSysColourMetricCache : public CObject {
    DECLARE_DYNAMIC(CSysColourMetricCache)

    CSysColourMetricCache();

    // The cursor of a drop effect: 0 none, 1 copy, 2 move; bit 16 says that the drop goes between two items,
    // bit 17 that a target is there and refuses.
    HCURSOR GetCursorForDropEffect(DWORD effect) const;

    COLORREF m_buttonShadow;    // the dark edge of buttons
    COLORREF m_buttonHighlight; // the light one
    COLORREF m_buttonFace;      // also the face of dialogs
    COLORREF m_windowFrame;
    COLORREF m_window; // behind text
    COLORREF m_windowText;
    COLORREF m_highlight; // behind selected text
    COLORREF m_highlightText;
    COLORREF m_scrollBar;
    COLORREF m_captionText;   // on the active window's caption
    COLORREF m_activeCaption; // behind it
    COLORREF m_inactiveCaptionText;
    COLORREF m_inactiveCaption;
    int m_verticalScrollWidth;    // pixels, here and below
    int m_horizontalScrollHeight; // of a horizontal scroll bar
    int m_edgeWidth;              // of a raised or sunken edge
    int m_edgeHeight;

    static constexpr int dropCursorCount = 5;

    // Never destroyed.
    HCURSOR m_arrowCursor;
    HCURSOR m_splitCursor;
    HCURSOR m_noDropCursor;
    HCURSOR m_dropCursors[dropCursorCount]; // refused, move, move between, copy, copy between
};

// The one record.
COREKIT_API const CSysColourMetricCache& SysColourMetricCache();
// Reads colours and measures anew; loads the cursors that are still missing.
COREKIT_API void UpdateSysColourMetricCache();
