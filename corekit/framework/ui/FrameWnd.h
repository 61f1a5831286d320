// A top window with a menu bar, accelerator keys and views.
//
// Commands go to the active view and its document, then to the frame, then to the application object; the
// state of menu items is asked for in the same order when their menu opens. A frame that is made with new and
// has LoadFrame or Create succeed deletes itself when its window is gone.
#pragma once

#include "corekit/framework/ui/CreateContext.h"
#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Accelerators.h"

class CView;

inline constexpr UINT AFX_IDW_PANE_FIRST = 0xE900, AFX_IDW_PANE_LAST = 0xE9FF; // ids of views

class COREKIT_API CFrameWnd : public CWnd {
    DECLARE_DYNAMIC(CFrameWnd)
public:
    CFrameWnd() = default;

    // For a null class that of a frame. The menu becomes the window's.
    BOOL Create(const char* className, const char* title, DWORD style = WS_OVERLAPPEDWINDOW,
                const RECT* rect = nullptr, CWnd* parent = nullptr, HMENU menu = nullptr, DWORD exStyle = 0,
                CCreateContext* context = nullptr);
    // A view of the context's class, or null; fills the frame.
    CWnd* CreateView(CCreateContext* context, UINT id = AFX_IDW_PANE_FIRST);
    // Tells all views to show their document for the first time, and shows the frame.
    void InitialUpdateFrame(CDocument* document, BOOL makeVisible);

    CView* GetActiveView() const { return m_pViewActive; }
    // Null for none. Both views are told unless `notify` is false.
    void SetActiveView(CView* view, BOOL notify = TRUE);
    virtual CDocument* GetActiveDocument();

    // Lays the view out over what the frame's other children leave.
    virtual void RecalcLayout(BOOL notify = TRUE);

    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;
    BOOL PreTranslateMessage(MSG* message) override;

    HACCEL m_hAccelTable = nullptr; // not owned
    BOOL m_bAutoMenuEnable = TRUE;  // menu items whose command nobody handles are disabled

protected:
    BOOL PreCreateWindow(CREATESTRUCTA& create) override;
    void PostNcDestroy() override;
    virtual BOOL OnCreateClient(CREATESTRUCTA* create, CCreateContext* context);

    int OnCreate(CREATESTRUCTA* create);
    void OnDestroy();
    void OnSetFocus(CWnd* former);
    void OnActivate(UINT state, CWnd* other, BOOL minimised);
    void OnSize(UINT how, int width, int height);
    void OnInitMenuPopup(CMenu* menu, UINT index, BOOL isSystemMenu);
    BOOL OnEraseBkgnd(CDC* dc);
    DECLARE_MESSAGE_MAP()

private:
    CView* m_pViewActive = nullptr;
};
