// What the parts of a multi-view list box know of the box: how it shows its items now, and what it answers.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/framework/Geometry.h"
#include "corekit/platform/Export.h"

class CDib;
class CImageList;
class StringW;

enum eMVLBMode { eMVLBMode_Grid, eMVLBMode_Details, eMVLBMode_List };
enum eMVLBAlign { eMVLBAlign_Left, eMVLBAlign_Centre, eMVLBAlign_Right };

namespace corekit::detail {

struct MVLBColumn {
    eMVLBAlign align;
    int dataColumn; // also the slot of its text in a record
    int width;
};

struct MVLBView {
    eMVLBMode mode = eMVLBMode_Details;
    bool isMultiSelect = false, isSorted = false, isDraggingEnabled = false;
    int sortColumn = -1;
    bool isAscending = true;
    CSize cellSize{100, 100}, pictureSize{80, 80}; // of the grid
    CArray<MVLBColumn, const MVLBColumn&> columns;
};

// MultiViewListBox.h says what each of those is for that a program answers.
class COREKIT_API MVLBOwner {
public:
    virtual void GetItemText(StringW& out, int id, int column) = 0;
    virtual int GetItemPicture(int id, CDib& out) = 0;

    virtual void OnColumnWidthChange(int column, int width) = 0;
    virtual void OnHeaderTrack(int column, int width) = 0; // the user gave the column that width
    virtual void OnHeaderClick(int column) = 0;

    virtual int CanDrag(CArray<int, int>& ids) = 0;
    virtual void MakeDragImage(CImageList* images) = 0;
    virtual DWORD GetDragEffect(int x, int y) = 0;
    virtual void OnDragCancel() = 0;
    virtual void OnDrop(int x, int y, CArray<int, int>& ids, int rightButton) = 0;

protected:
    ~MVLBOwner() = default;
};

} // namespace corekit::detail
