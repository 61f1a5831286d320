// A pane that a host docks at an edge of its frame, or lets float and resizes. The host derives its panes:
//
//     int COutline::OnCreateContents(CREATESTRUCTA*, void*)
//     {
//         return m_tree.Create(WS_CHILD | WS_VISIBLE, CRect(), this, contentsId);
//     }
//     CSize COutline::CalcFloatingSize(int cx, int cy) { return {std::max(cx, 80), std::max(cy, 60)}; }
//     CSize COutline::CalcDockedSize(int horizontal, int cx, int cy) { return {cx, horizontal ? 120 : cy}; }
//     CSize COutline::CalcContentSize(int, int) { return {160, 240}; }
//
// The child with the id `contentsId` fills the pane but for a margin, by which the pane is dragged. A bar
// style with CBRS_SIZE_DYNAMIC makes the pane resizable. User-interface thread only.
#pragma once

#include "corekit/framework/ui/ControlBar.h"

class COREKIT_API CDockableWindow : public CControlBar {
    DECLARE_DYNAMIC(CDockableWindow)
public:
    static constexpr UINT contentsId = 59648;

    CDockableWindow();

    // Builds the windows of the pane; above 0: it succeeded. `parameters` is the context given to Create.
    virtual int OnCreateContents(CREATESTRUCTA* create, void* parameters) = 0;
    // The size that the contents take, floating, where they could have this one.
    virtual CSize CalcFloatingSize(int cx, int cy) = 0;
    // The same docked, lying at an upper or lower edge or standing at a side.
    virtual CSize CalcDockedSize(int horizontal, int cx, int cy) = 0;
    // The size of contents that do not change theirs.
    virtual CSize CalcContentSize(int stretch, int horizontal) = 0;
    // A child and bar of `parent`, with a window style and CBRS_ flags in `style`; 0 also if
    // OnCreateContents fails.
    BOOL Create(CWnd* parent, UINT id, const char* name, const CRect& rect, DWORD style,
                CCreateContext* context = nullptr);

    CSize CalcFixedLayout(BOOL stretch, BOOL horizontal) override;
    CSize CalcDynamicLayout(int length, DWORD mode) override;
    void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) override;
    void ChangeSize(UINT how, int width, int height); // lays the contents out

protected:
    int OnCreate(CREATESTRUCTA* create);
    void OnSize(UINT how, int width, int height);
    DECLARE_MESSAGE_MAP()

    static CString m_strClass; // of windows

private:
    using CControlBar::Create;

    CSize m_size, m_savedSize; // of the contents; the second is that of the last time the user let go
};
