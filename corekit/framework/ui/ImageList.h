// A list of pictures as an object.
//
// It owns the list it holds: what Create made or Attach brought is destroyed by DeleteImageList or the
// destructor, unless Detach takes it away first. User-interface thread only.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/ImageLists.h"

class CWnd;

class COREKIT_API CImageList : public CObject {
    DECLARE_DYNAMIC(CImageList)

    CImageList() = default;
    ~CImageList() override { DeleteImageList(); }

    BOOL Create(int width, int height, UINT flags, int initial, int grow)
    {
        return Attach(ImageList_Create(width, height, flags, initial, grow));
    }
    // False, and nothing changes, for a null handle or while another one is held.
    BOOL Attach(HIMAGELIST list);
    HIMAGELIST Detach();
    BOOL DeleteImageList();
    HIMAGELIST GetSafeHandle() const { return m_hImageList; }
    operator HIMAGELIST() const { return m_hImageList; }

    int Add(HBITMAP strip, HBITMAP mask) { return ImageList_Add(m_hImageList, strip, mask); }
    int Add(HBITMAP strip, COLORREF mask) { return ImageList_AddMasked(m_hImageList, strip, mask); }
    int Add(HICON icon) { return ImageList_ReplaceIcon(m_hImageList, -1, icon); }
    int Replace(int index, HICON icon) { return ImageList_ReplaceIcon(m_hImageList, index, icon); }
    BOOL Remove(int index) { return ImageList_Remove(m_hImageList, index); }
    int GetImageCount() const { return ImageList_GetImageCount(m_hImageList); }
    COLORREF SetBkColor(COLORREF colour) { return ImageList_SetBkColor(m_hImageList, colour); }
    BOOL Draw(HDC dc, int index, POINT at, UINT style)
    {
        return ImageList_Draw(m_hImageList, index, dc, at.x, at.y, style);
    }

    BOOL BeginDrag(int index, POINT hotSpot)
    {
        return ImageList_BeginDrag(m_hImageList, index, hotSpot.x, hotSpot.y);
    }
    BOOL SetDragCursorImage(int index, POINT hotSpot)
    {
        return ImageList_SetDragCursorImage(m_hImageList, index, hotSpot.x, hotSpot.y);
    }
    static BOOL DragEnter(CWnd* lock, POINT point);
    static BOOL DragLeave(CWnd* lock);
    static BOOL DragMove(POINT point) { return ImageList_DragMove(point.x, point.y); }
    static BOOL DragShowNolock(BOOL show) { return ImageList_DragShowNolock(show); }
    static void EndDrag() { ImageList_EndDrag(); }

    HIMAGELIST m_hImageList = nullptr;
};
