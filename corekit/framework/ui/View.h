// A window that shows a document, within a frame.
//
// It is made with new and deletes itself when its window is gone. It paints by OnDraw, and passes on to its
// document the commands that it does not handle. A click makes it the frame's active view.
#pragma once

#include "corekit/framework/ui/CreateContext.h"
#include "corekit/framework/ui/Document.h"
#include "corekit/framework/ui/Wnd.h"

class COREKIT_API CView : public CWnd, public corekit::detail::DocumentViewer {
    DECLARE_DYNAMIC(CView)
public:
    CView() = default;
    ~CView() override; // leaves its document

    CDocument* GetDocument() const { return m_pDocument; }
    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;

    // Once, when frame and document are there: shows the document for the first time.
    virtual void OnInitialUpdate() { OnUpdate(nullptr, 0, nullptr); }
    // The document has changed; repaints all.
    void OnUpdate(CView* sender, LPARAM hint, CObject* what) override;
    // Becomes or ceases to be the active view; takes the focus when its frame is in front.
    virtual void OnActivateView(BOOL activate, CView* activated, CView* deactivated);

protected:
    virtual void OnDraw(CDC* dc) = 0;
    void PostNcDestroy() override;
    BOOL PreCreateWindow(CREATESTRUCTA& create) override;

    int OnCreate(CREATESTRUCTA* create);
    void OnDestroy();
    void OnPaint();
    int OnMouseActivate(CWnd* top, UINT hit, UINT message);
    LRESULT OnInitialUpdateMessage(WPARAM, LPARAM);
    DECLARE_MESSAGE_MAP()
};
