// A list of pictures as an object.
//
// It owns the list it holds: what Create made or Attach brought is destroyed by DeleteImageList or the
// destructor, unless Detach takes it away first. User-interface thread only.
//
// Pictures count from 0. Everything fails, with -1, 0 or false, while the object holds no list.
//
//     CImageList icons;
//     icons.Create(16, 16, ILC_COLOR32 | ILC_MASK, 8, 8);
//     icons.Add(strip, RGB(255, 0, 255));
//     tree.SetImageList(icons); // must outlive the tree's use of it
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/ImageLists.h"

class CWnd;

class COREKIT_API CImageList : public CObject {
    DECLARE_DYNAMIC(CImageList)

    CImageList() = default;
    ~CImageList() override { DeleteImageList(); }

    // Pictures of that size in pixels, 1 to 4,096 each; the flags and the two numbers are hints. False while
    // it holds another list.
    BOOL Create(int width, int height, UINT flags, int initial, int grow)
    {
        return Attach(ImageList_Create(width, height, flags, initial, grow));
    }
    // False, and nothing changes, for a null handle or while another one is held.
    BOOL Attach(HIMAGELIST list);
    // Gives the list away; null if there was none.
    HIMAGELIST Detach();
    BOOL DeleteImageList(); // false without a list
    HIMAGELIST GetSafeHandle() const { return m_hImageList; }
    operator HIMAGELIST() const { return m_hImageList; }

    // Cuts the strip into pictures side by side and copies them; answers the first index, -1 on failure. The
    // mask, null for none, is white where nothing shows.
    int Add(HBITMAP strip, HBITMAP mask) { return ImageList_Add(m_hImageList, strip, mask); }
    // Pixels of that colour show nothing.
    int Add(HBITMAP strip, COLORREF mask) { return ImageList_AddMasked(m_hImageList, strip, mask); }
    // Scaled to the list's size; answers the index.
    int Add(HICON icon) { return ImageList_ReplaceIcon(m_hImageList, -1, icon); }
    // The same in place of a picture.
    int Replace(int index, HICON icon) { return ImageList_ReplaceIcon(m_hImageList, index, icon); }
    // Those behind move to the front; -1 removes all.
    BOOL Remove(int index) { return ImageList_Remove(m_hImageList, index); }
    int GetImageCount() const { return ImageList_GetImageCount(m_hImageList); }
    // What ILD_NORMAL draws behind a picture, CLR_NONE for nothing; answers the former.
    COLORREF SetBkColor(COLORREF colour) { return ImageList_SetBkColor(m_hImageList, colour); }
    // Its upper left corner at the point; `style`: ILD_.
    BOOL Draw(HDC dc, int index, POINT at, UINT style)
    {
        return ImageList_Draw(m_hImageList, index, dc, at.x, at.y, style);
    }

    // A picture that follows the pointer, its hot spot at the points given below; one at a time in the
    // program.
    BOOL BeginDrag(int index, POINT hotSpot)
    {
        return ImageList_BeginDrag(m_hImageList, index, hotSpot.x, hotSpot.y);
    }
    // Draws another picture of this list over the one that is dragged.
    BOOL SetDragCursorImage(int index, POINT hotSpot)
    {
        return ImageList_SetDragCursorImage(m_hImageList, index, hotSpot.x, hotSpot.y);
    }
    // Shows it at the point, in the client area of `lock`; null: on the screen.
    static BOOL DragEnter(CWnd* lock, POINT point);
    static BOOL DragLeave(CWnd* lock); // hides it
    // In the same coordinates.
    static BOOL DragMove(POINT point) { return ImageList_DragMove(point.x, point.y); }
    // Hides it while something else draws, and shows it again.
    static BOOL DragShowNolock(BOOL show) { return ImageList_DragShowNolock(show); }
    static void EndDrag() { ImageList_EndDrag(); } // the picture goes

    HIMAGELIST m_hImageList = nullptr; // owned
};
