#include "corekit/graphics/ui/SysColourMetricCache.h"

#include "corekit/foundation/SystemInfo.h"
#include "corekit/platform/Cursors.h"
#include "corekit/platform/SystemColours.h"
#include "corekit/resources/Cursors.h"

IMPLEMENT_DYNAMIC(CSysColourMetricCache, CObject)

namespace {

constexpr DWORD dropBetween = 0x10000;
constexpr DWORD dropRefused = 0x20000;
constexpr DWORD effectMarks = 0xFF0000;
constexpr DWORD effectCopy = 1;
constexpr DWORD effectMove = 2;

enum DropCursor { refused, move, moveBetween, copy, copyBetween };

struct ColourField {
    COLORREF CSysColourMetricCache::*field;
    int colour;
};
constexpr ColourField colourFields[] = {
    {&CSysColourMetricCache::m_buttonShadow, COLOR_BTNSHADOW},
    {&CSysColourMetricCache::m_buttonHighlight, COLOR_BTNHIGHLIGHT},
    {&CSysColourMetricCache::m_buttonFace, COLOR_BTNFACE},
    {&CSysColourMetricCache::m_windowFrame, COLOR_WINDOWFRAME},
    {&CSysColourMetricCache::m_window, COLOR_WINDOW},
    {&CSysColourMetricCache::m_windowText, COLOR_WINDOWTEXT},
    {&CSysColourMetricCache::m_highlight, COLOR_HIGHLIGHT},
    {&CSysColourMetricCache::m_highlightText, COLOR_HIGHLIGHTTEXT},
    {&CSysColourMetricCache::m_scrollBar, COLOR_SCROLLBAR},
    {&CSysColourMetricCache::m_captionText, COLOR_CAPTIONTEXT},
    {&CSysColourMetricCache::m_activeCaption, COLOR_ACTIVECAPTION},
    {&CSysColourMetricCache::m_inactiveCaptionText, COLOR_INACTIVECAPTIONTEXT},
    {&CSysColourMetricCache::m_inactiveCaption, COLOR_INACTIVECAPTION},
};

constexpr UINT dropCursorIds[CSysColourMetricCache::dropCursorCount] = {
    IDC_COREKIT_DROPREFUSED, IDC_COREKIT_MOVE, IDC_COREKIT_MOVEBETWEEN, IDC_COREKIT_COPY,
    IDC_COREKIT_COPYBETWEEN};

// Colours and measures are 0 here, as all static memory.
CSysColourMetricCache theCache;

void loadIfNull(HCURSOR& cursor, const char* name)
{
    if (!cursor) cursor = LoadCursorA(nullptr, name);
}

void loadIfNull(HCURSOR& cursor, UINT id) { loadIfNull(cursor, MAKEINTRESOURCEA(static_cast<WORD>(id))); }

} // namespace

CSysColourMetricCache::CSysColourMetricCache()
    : m_arrowCursor(nullptr), m_splitCursor(nullptr), m_noDropCursor(nullptr), m_dropCursors{}
{
}

HCURSOR CSysColourMetricCache::GetCursorForDropEffect(DWORD effect) const
{
    const bool isBetween = (effect & dropBetween) != 0;
    switch (effect & ~effectMarks) {
    case 0:
        return effect & dropRefused ? m_dropCursors[refused] : m_noDropCursor;
    case effectCopy:
        return m_dropCursors[isBetween ? copyBetween : copy];
    case effectMove:
        return m_dropCursors[isBetween ? moveBetween : move];
    default:
        return m_noDropCursor;
    }
}

const CSysColourMetricCache& SysColourMetricCache() { return theCache; }

void UpdateSysColourMetricCache()
{
    for (const ColourField& f : colourFields) theCache.*f.field = GetSysColor(f.colour);
    theCache.m_verticalScrollWidth = GetSystemMetrics(SM_CXVSCROLL);
    theCache.m_horizontalScrollHeight = GetSystemMetrics(SM_CYHSCROLL);
    theCache.m_edgeWidth = theCache.m_edgeHeight = SysInfo().IsNewWindowsUI() ? 2 : 1;
    loadIfNull(theCache.m_arrowCursor, IDC_ARROW);
    loadIfNull(theCache.m_splitCursor, IDC_COREKIT_SPLIT);
    loadIfNull(theCache.m_noDropCursor, IDC_COREKIT_NODROP);
    for (int i = 0; i < CSysColourMetricCache::dropCursorCount; ++i)
        loadIfNull(theCache.m_dropCursors[i], dropCursorIds[i]);
}
