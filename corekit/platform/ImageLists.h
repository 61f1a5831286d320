// Lists of pictures of one size, for trees, lists, tabs and drags.
//
// A list owns copies of its pictures; whoever created it destroys it. Controls do not own the lists they are
// given. A handle that has been destroyed is refused. User-interface thread only.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

using HIMAGELIST = struct _IMAGELIST*;

// Flags of ImageList_Create: a mask, and bits a pixel. All are accepted.
inline constexpr UINT ILC_COLOR = 0x0;
inline constexpr UINT ILC_MASK = 0x1;
inline constexpr UINT ILC_COLOR4 = 0x4;
inline constexpr UINT ILC_COLOR8 = 0x8;
inline constexpr UINT ILC_COLOR16 = 0x10;
inline constexpr UINT ILC_COLOR24 = 0x18;
inline constexpr UINT ILC_COLOR32 = 0x20;

// How a picture is drawn.
inline constexpr UINT ILD_NORMAL = 0x0;      // over the background colour, if the list has one
inline constexpr UINT ILD_TRANSPARENT = 0x1; // without the background colour
inline constexpr UINT ILD_BLEND25 = 0x2;     // mixed with a quarter of the colour of selections
inline constexpr UINT ILD_BLEND50 = 0x4;     // with half of it

// A picture of a state list, as it stands in an item's state; 0 is none.
constexpr UINT INDEXTOSTATEIMAGEMASK(UINT index) { return index << 12; }

inline constexpr COLORREF CLR_NONE = 0xFFFFFFFF;    // no background
inline constexpr COLORREF CLR_DEFAULT = 0xFF000000; // ImageList_AddMasked looks the colour up

// Null for a size that is not from 1 to 4096. Every list keeps 32 bits a pixel, whatever the flags say of
// colours; the two last arguments are hints.
COREKIT_API HIMAGELIST ImageList_Create(int width, int height, UINT flags, int initial, int grow);
// 0 with error 6 for a handle that is none.
COREKIT_API BOOL ImageList_Destroy(HIMAGELIST list);

// Cut a strip of pictures side by side and append them; what is left at its right is dropped. Answer the
// first index, -1 on failure. The mask bitmap, if any, is white where nothing shows. A mask of another size
// than the strip is not used.
COREKIT_API int ImageList_Add(HIMAGELIST list, HBITMAP strip, HBITMAP mask);
// Pixels of this colour show nothing; CLR_DEFAULT: of the colour at the top left.
COREKIT_API int ImageList_AddMasked(HIMAGELIST list, HBITMAP strip, COLORREF mask);
// Index -1 appends. Answers the index. Scaled to the list's size; -1 on failure.
COREKIT_API int ImageList_ReplaceIcon(HIMAGELIST list, int index, HICON icon);
// Index -1 removes all. Those behind move to the front.
COREKIT_API BOOL ImageList_Remove(HIMAGELIST list, int index);
COREKIT_API int ImageList_GetImageCount(HIMAGELIST list);
// In pixels; both pointers are needed.
COREKIT_API BOOL ImageList_GetIconSize(HIMAGELIST list, int* width, int* height);
// Answers the former; a new list has CLR_NONE.
COREKIT_API COLORREF ImageList_SetBkColor(HIMAGELIST list, COLORREF colour);
// Its upper left corner at x, y, in units of the context. 0 for a picture that does not exist.
COREKIT_API BOOL ImageList_Draw(HIMAGELIST list, int index, HDC dc, int x, int y, UINT style);

// A picture that follows the pointer. One at a time; the hot spot is the point of the picture that lies at
// the points given. `lock` is the window whose client the points belong to; null: the screen.
COREKIT_API BOOL ImageList_BeginDrag(HIMAGELIST list, int index, int hotX, int hotY);
// Shows the picture; 0 unless a drag has begun, as all of these.
COREKIT_API BOOL ImageList_DragEnter(HWND lock, int x, int y);
COREKIT_API BOOL ImageList_DragMove(int x, int y);
// Hides it while something else draws, and shows it again.
COREKIT_API BOOL ImageList_DragShowNolock(BOOL show);
COREKIT_API BOOL ImageList_DragLeave(HWND lock); // hides it
// The picture goes.
COREKIT_API void ImageList_EndDrag();
// Draws another picture over the one that is dragged.
COREKIT_API BOOL ImageList_SetDragCursorImage(HIMAGELIST list, int index, int hotX, int hotY);
