// What the workbench's windows hold: texts in seven scripts, colours, pictures.
#pragma once

#include "corekit/windows/controls/ui/ColourListBox.h"
#include "corekit/windows/controls/ui/TabBar.h"
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

// A colour for the text of a story or for its ground: tabs above say for which. The frame hears
// commandColour.
class ColourPicker : public CWnd {
public:
    bool Create(CWnd& parent, UINT id);
    bool IsForGround() const { return m_for.GetSelected() == 1; }
    COLORREF GetColour() const;
    void ShowColours(COLORREF text, COLORREF ground); // of the story that is shown now

protected:
    int OnCreate(CREATESTRUCTA* create);
    void OnSize(UINT how, int width, int height);
    void OnOther();
    void OnColour();
    DECLARE_MESSAGE_MAP()

private:
    CTabBar m_for;
    CColourListBox m_colours;
    COLORREF m_shown[2] = {RGB(0, 0, 0), RGB(255, 255, 255)};
};

class ColoursPane : public CDockableWindow {
public:
    ColourPicker m_picker;

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
