// Files that are dropped on a window, and targets for what other programs drag over it.
//
// A window with WS_EX_ACCEPTFILES, or after DragAcceptFiles, gets WM_DROPFILES. A registered target hears of
// each movement and answers what a drop would do. User-interface thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

using HDROP = struct HDROP__*;

COREKIT_API void DragAcceptFiles(HWND window, BOOL accept);
// For index 0xFFFFFFFF the number of files, else the length of a file's name, which is copied with its
// terminator and cut to the size; for a null buffer the whole length.
COREKIT_API UINT DragQueryFileA(HDROP drop, UINT index, char* buffer, UINT size);
// Where, in the client area; the answer is whether it lies there.
COREKIT_API BOOL DragQueryPoint(HDROP drop, POINT* point);
COREKIT_API void DragFinish(HDROP drop); // after the last use

// The format of files that are dragged: what is got of it is an HDROP for DragFinish to end.
inline constexpr UINT CF_HDROP = 15;

inline constexpr DWORD DROPEFFECT_NONE = 0, DROPEFFECT_COPY = 1, DROPEFFECT_MOVE = 2, DROPEFFECT_LINK = 4,
                       DROPEFFECT_SCROLL = 0x80000000;

namespace corekit::detail {

// What is dragged, for as long as it is over a window.
class COREKIT_API DraggedData {
public:
    virtual ~DraggedData() = default;
    virtual bool hasFormat(UINT format) const = 0; // CF_TEXT, CF_UNICODETEXT, CF_HDROP or a registered one
    virtual HGLOBAL get(UINT format) const = 0;    // for the caller to free; null if there is none
};

// Points are in the client area; answers are DROPEFFECT_ values.
class COREKIT_API DropTarget {
public:
    virtual ~DropTarget() = default;
    virtual DWORD enter(HWND window, const DraggedData& data, DWORD keys, POINT point) = 0;
    virtual DWORD over(HWND window, const DraggedData& data, DWORD keys, POINT point) = 0;
    virtual void leave(HWND window) = 0;
    virtual DWORD drop(HWND window, const DraggedData& data, DWORD effect, POINT point) = 0;
};

// One a window; null revokes it. The target stays the caller's, and outlives its registration. False for no
// window.
COREKIT_API bool setDropTarget(HWND window, DropTarget* target);

} // namespace corekit::detail
