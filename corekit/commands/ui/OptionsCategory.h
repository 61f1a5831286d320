// A node in the tree of a program's settings, and what the program says about it.
//
// A program derives a class for each category, builds a tree of them and shows it:
//
//     CSimpleOptionsCategory root(IDS_OPTIONS, 1);
//     root.AddChild(new FontCategory);
//     root.AddChild(new NetworkCategory);
//     root.ShowOptionsDialog(IDS_OPTIONS, mainWindow, &log);
//
// A node owns its children; the root is its builder's. User-interface thread only.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"

class CAXPropertySheet;
class CLogTarget;
class CWnd;

class COREKIT_API COptionsCategory : public CObject {
    DECLARE_DYNAMIC(COptionsCategory)
public:
    COptionsCategory() = default;
    ~COptionsCategory() override; // deletes the children, from the first

    virtual CString GetTitle() = 0; // in the tree
    // Whether the category may be shown now; 0 shows the blank page instead. It may ask the user.
    virtual int CheckSelectOK(CWnd* parent) = 0;
    // Adds the category's pages, made with new: the sheet deletes them.
    virtual void PreparePages(CWnd* parent, CAXPropertySheet& sheet) = 0;
    // Stores what the pages committed; above 0 means success.
    virtual int SavePageData(CWnd* parent) = 0;
    // Drops what the pages hold.
    virtual void Cancel(CWnd* parent) = 0;
    // Nonzero keeps this node out of the tree when it is the root.
    virtual int HideIfRootCategory() = 0;

    void AddChild(COptionsCategory* child);                  // made with new
    COptionsCategory* GetParent() const { return m_parent; } // null for the root
    const CArray<COptionsCategory*, COptionsCategory*>& GetChildArray() const { return m_children; }
    int HasChildren() const { return m_children.GetSize() > 0; }

    // Shows the tree beside the pages of the category picked, without children a plain sheet. 1 if the user
    // confirmed. The log, which may be null, hears of each step.
    int ShowOptionsDialog(UINT captionId, CWnd* parent, CLogTarget* log);

private:
    // A plain sheet of this category's pages.
    int DoSoloCategory(UINT captionId, CWnd* parent);

    CArray<COptionsCategory*, COptionsCategory*> m_children; // owned
    COptionsCategory* m_parent = nullptr;
};

// A node that only groups others.
class COREKIT_API CSimpleOptionsCategory : public COptionsCategory {
    DECLARE_DYNAMIC(CSimpleOptionsCategory)
public:
    // The title by its number in the string table; `hideIfRoot` is what HideIfRootCategory answers.
    CSimpleOptionsCategory(UINT titleStringId, int hideIfRoot);

    CString GetTitle() override { return m_title; }
    int CheckSelectOK(CWnd*) override { return 1; }
    void PreparePages(CWnd* parent, CAXPropertySheet& sheet) override; // the blank page
    int SavePageData(CWnd*) override { return 1; }
    void Cancel(CWnd*) override {}
    int HideIfRootCategory() override { return m_hideIfRoot; }

protected:
    // The page that asks to pick a category.
    void AddBlankPage(CAXPropertySheet& sheet);

private:
    CString m_title;
    int m_hideIfRoot;
};
