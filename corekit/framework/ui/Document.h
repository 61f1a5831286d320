// What views show: a title, whether it has been changed, and the list of its views.
//
// A document owns nothing of its views; views register themselves when they are created and leave when they
// are destroyed. User-interface thread.
//
// A document is made and deleted by the program; CCreateContext hands it to the views that a frame makes.
//
//     document.SetModifiedFlag();
//     document.UpdateAllViews(nullptr); // every view paints anew
#pragma once

#include "corekit/framework/CmdTarget.h"
#include "corekit/framework/String.h"

#include <vector>

class CDocument;
class CView;

namespace corekit::detail {
// A view as its document sees it.
class COREKIT_API DocumentViewer {
public:
    // The document has changed.
    virtual void OnUpdate(CView* sender, LPARAM hint, CObject* what) = 0;

    CDocument* m_pDocument = nullptr; // not owned; set by CDocument

protected:
    ~DocumentViewer() = default;
};
} // namespace corekit::detail

class COREKIT_API CDocument : public CCmdTarget {
    DECLARE_DYNAMIC(CDocument)
public:
    CDocument() = default; // no title, no path, not modified, no view
    ~CDocument() override; // its views stay, without a document

    const CString& GetTitle() const { return m_strTitle; }
    // Null counts as "". The frame's caption does not follow by itself.
    virtual void SetTitle(const char* title) { m_strTitle = title ? title : ""; }
    const CString& GetPathName() const { return m_strPathName; }
    // Of the file that it came from, as text; nothing is read.
    virtual void SetPathName(const char* path) { m_strPathName = path ? path : ""; }
    // Whether there is something to save, as SetModifiedFlag has said.
    virtual BOOL IsModified() const { return m_bModified; }
    virtual void SetModifiedFlag(BOOL modified = TRUE) { m_bModified = modified; }
    // Empties the document for other contents; does nothing here.
    virtual void DeleteContents() {}

    // Called by a view when it is created with this document; one that is in the list already stays where it
    // is.
    void AddView(CView* view);
    // Called by a view's destructor; the view is without a document then.
    void RemoveView(CView* view);
    // Walk the views in the order in which they came; null at the end. Null without a view.
    virtual POSITION GetFirstViewPosition() const;
    // The view at the position, which moves on; adding or removing views ends a walk.
    virtual CView* GetNextView(POSITION& position) const;
    // Calls OnUpdate of each view but the sender, which may be null. `hint` and `what` are the program's own
    // and go on as they are. A view may close itself or others meanwhile.
    void UpdateAllViews(CView* sender, LPARAM hint = 0, CObject* what = nullptr);
    // After a view has come or gone; does nothing here.
    virtual void OnChangedViewList() {}

private:
    struct Listed {
        CView* view; // not owned
        corekit::detail::DocumentViewer* seen;
    };
    void Enlist(CView* view, corekit::detail::DocumentViewer& seen);
    bool Lists(const CView* view) const;

    std::vector<Listed> m_views;
    CString m_strTitle, m_strPathName;
    BOOL m_bModified = FALSE;
};
