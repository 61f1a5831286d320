// A list of colours: a patch of each with its name.
//
// The first object of the program reads the system's colours into the shared record. User-interface thread
// only.
#pragma once

#include "corekit/framework/ui/ListBox.h"

class COREKIT_API CColourListBox : public CListBox {
    DECLARE_DYNAMIC(CColourListBox)
public:
    CColourListBox();

    // The style gets what the list needs; LBS_SORT is allowed.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CListBox::Create(style | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS, rect, parent, id);
    }
    int AddColour(const char* name, COLORREF colour); // the row
    // Of a row that exists.
    COLORREF GetColour(int row) const { return static_cast<COLORREF>(GetItemData(row)); }

    BOOL GetSelectedColour(COLORREF& colour) const; // FALSE without a selection
    int SelectColour(COLORREF colour); // the row; -1, and no selection, for one that is not there

    void DrawItem(DRAWITEMSTRUCT* item) override;       // a patch twice as wide as high, then the name
    void MeasureItem(MEASUREITEMSTRUCT* item) override; // 18 pixels a row
};
