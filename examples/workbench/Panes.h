// What the workbench's windows hold: texts in seven scripts, colours, pictures.
#pragma once

#include "corekit/windows/controls/ui/ColourListBox.h"
#include "corekit/windows/ui/DockableWindow.h"
#include "corekit/windows/ui/MultiViewListBox.h"

struct Story {
    const WCHAR* title;
    const WCHAR* text;
};
inline constexpr int storyCount = 7;
extern const Story stories[storyCount];

// Of the contents of a pane that stands in a dock from end to end.
int WholeHeight(const CDockableWindow& pane);

class ColoursPane : public CDockableWindow {
public:
    CColourListBox m_colours;

protected:
    int OnCreateContents(CREATESTRUCTA* create, void* parameters) override;
    CSize CalcFloatingSize(int cx, int cy) override { return {std::max(cx, 90), std::max(cy, 60)}; }
    CSize CalcDockedSize(int lies, int cx, int) override
    {
        return lies ? CSize(cx, 80) : CSize(120, WholeHeight(*this));
    }
    CSize CalcContentSize(int, int) override { return {120, 300}; }
};

// Pictures that can be dragged about, as pictures, table or names.
class Pictures : public CMultiViewListBox {
protected:
    void GetItemText(StringW& out, int id, int column) override;
    int GetItemPicture(int id, CDib& out) override;
    void OnSelectionChange() override {}
    void OnItemDoubleClick(int) override {}
    void OnListSetFocus() override {}
    void OnColumnWidthChange(int, int) override {}
    DWORD GetDragEffect(int x, int y) override;
    int CanDrag(CArray<int, int>&) override { return 1; }
    void OnDragCancel() override {}
    void OnDrop(int x, int y, CArray<int, int>& ids, int rightButton) override;
    void MakeDragImage(CImageList* images) override;
};

class PicturesPane : public CDockableWindow {
public:
    Pictures m_pictures;

protected:
    int OnCreateContents(CREATESTRUCTA* create, void* parameters) override;
    CSize CalcFloatingSize(int cx, int cy) override { return {std::max(cx, 120), std::max(cy, 90)}; }
    CSize CalcDockedSize(int lies, int cx, int) override
    {
        return lies ? CSize(cx, 130) : CSize(240, WholeHeight(*this));
    }
    CSize CalcContentSize(int, int) override { return {240, 300}; }
};
