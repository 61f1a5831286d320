// What views show: a title, whether it has been changed, and the list of its views.
//
// A document owns nothing of its views; views register themselves when they are created and leave when they
// are destroyed. User-interface thread.
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
    CDocument() = default;
    ~CDocument() override; // its views stay, without a document

    const CString& GetTitle() const { return m_strTitle; }
    virtual void SetTitle(const char* title) { m_strTitle = title ? title : ""; }
    const CString& GetPathName() const { return m_strPathName; }
    virtual void SetPathName(const char* path) { m_strPathName = path ? path : ""; }
    virtual BOOL IsModified() const { return m_bModified; }
    virtual void SetModifiedFlag(BOOL modified = TRUE) { m_bModified = modified; }
    virtual void DeleteContents() {}

    void AddView(CView* view);
    void RemoveView(CView* view);
    // Walk the views in the order in which they came; null at the end.
    virtual POSITION GetFirstViewPosition() const;
    virtual CView* GetNextView(POSITION& position) const;
    // Calls OnUpdate of each view but the sender, which may be null.
    void UpdateAllViews(CView* sender, LPARAM hint = 0, CObject* what = nullptr);
    virtual void OnChangedViewList() {}

private:
    struct Listed {
        CView* view;
        corekit::detail::DocumentViewer* seen;
    };
    void Enlist(CView* view, corekit::detail::DocumentViewer& seen);
    bool Lists(const CView* view) const;

    std::vector<Listed> m_views;
    CString m_strTitle, m_strPathName;
    BOOL m_bModified = FALSE;
};
