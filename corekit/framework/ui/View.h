// A window that shows a document, within a frame.
//
// It is made with new and deletes itself when its window is gone. It paints by OnDraw, and passes on to its
// document the commands that it does not handle. A click makes it the frame's active view.
//
// CFrameWnd::CreateView makes one of a class declared with DECLARE_DYNCREATE. User-interface thread.
//
//     class CTextView : public CView {
//         DECLARE_DYNCREATE(CTextView)
//         void OnDraw(CDC* dc) override { dc->TextOut(0, 0, GetDocument()->GetTitle()); }
//     };
#pragma once

#include "corekit/framework/ui/CreateContext.h"
#include "corekit/framework/ui/Document.h"
#include "corekit/framework/ui/Wnd.h"

class COREKIT_API CView : public CWnd, public corekit::detail::DocumentViewer {
    DECLARE_DYNAMIC(CView)
public:
    CView() = default;
    ~CView() override; // leaves its document

    // Null for a view without one.
    CDocument* GetDocument() const { return m_pDocument; }
    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;

    // Once, when frame and document are there: shows the document for the first time.
    virtual void OnInitialUpdate() { OnUpdate(nullptr, 0, nullptr); }
    // The document has changed; repaints all. `hint` and `what` are those of UpdateAllViews; `sender` is the
    // view that made the change, or null.
    void OnUpdate(CView* sender, LPARAM hint, CObject* what) override;
    // Becomes or ceases to be the active view; takes the focus when its frame is in front. `activated` and
    // `deactivated` are the views concerned and may be the same one or null.
    virtual void OnActivateView(BOOL activate, CView* activated, CView* deactivated);

protected:
    // Paints the client area; the context is clipped to what is needed and good during the call.
    virtual void OnDraw(CDC* dc) = 0;
    // Deletes the object.
    void PostNcDestroy() override;
    // A class with an arrow and the colour of windows, unless another is named.
    BOOL PreCreateWindow(CREATESTRUCTA& create) override;

    // Joins the document of the context.
    int OnCreate(CREATESTRUCTA* create);
    // The frame has no active view then, if it was this one.
    void OnDestroy();
    void OnPaint();
    int OnMouseActivate(CWnd* top, UINT hit, UINT message);
    LRESULT OnInitialUpdateMessage(WPARAM, LPARAM);
    DECLARE_MESSAGE_MAP()
};
