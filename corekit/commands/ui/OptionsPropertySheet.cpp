#include "corekit/commands/ui/OptionsPropertySheet.h"

#include "corekit/commands/ui/OptionsCategory.h"
#include "corekit/commands/ui/PPage_OptionsMgrBlank.h"
#include "corekit/logging/LogTarget.h"
#include "corekit/resources/Messages.h"

IMPLEMENT_DYNAMIC(COptionsPropertySheet, CAXPropertySheet)

namespace {
constexpr int treeControl = 1400;
constexpr DWORD treeStyle = 0x50810037; // lines and buttons from the root on, the pick always to be seen
constexpr int treeLeft = 15, treeRight = 185, growth = 100, shift = 200; // pixels
} // namespace

BEGIN_MESSAGE_MAP(COptionsPropertySheet, CAXPropertySheet)
ON_BN_CLICKED(IDOK, &COptionsPropertySheet::OnOK)
ON_BN_CLICKED(IDCANCEL, &COptionsPropertySheet::OnCancel)
ON_NOTIFY(TVN_SELCHANGED, treeControl, &COptionsPropertySheet::OnSelChangedOptionsList)
END_MESSAGE_MAP()

COptionsPropertySheet::COptionsPropertySheet(UINT captionId, CWnd* parent, COptionsCategory& root,
                                             CLogTarget* log)
    : CAXPropertySheet(captionId, parent, 0), m_log(log), m_root(&root)
{
}

void COptionsPropertySheet::Log(const WCHAR* text) const
{
    if (m_log) m_log->LogTraceMsg(text);
}

// ---- The frame ----------------------------------------------------------------------------------

BOOL COptionsPropertySheet::OnInitDialog()
{
    const BOOL result = CAXPropertySheet::OnInitDialog();
    MakeRoomForTree();
    FillTree();
    m_current = nullptr;
    Log(u"1. COptionsPropertySheet::Init done");
    return result;
}

void COptionsPropertySheet::MakeRoomForTree()
{
    CRect frame;
    GetWindowRect(&frame);
    frame.InflateRect(growth, 0);
    MoveWindow(&frame);
    for (CWnd* child = GetTopWindow(); child; child = child->GetNextWindow()) {
        CRect place;
        child->GetWindowRect(&place);
        ScreenToClient(&place);
        place.OffsetRect(shift, 0);
        child->MoveWindow(&place);
    }
    CRect tabs;
    GetTabControl()->GetWindowRect(&tabs);
    ScreenToClient(&tabs);
    const HWND tree = CreateWindowExA(
        0, WC_TREEVIEWA, "Categories", treeStyle, treeLeft, tabs.top, treeRight - treeLeft, tabs.Height(),
        m_hWnd, reinterpret_cast<HMENU>(static_cast<LONG_PTR>(treeControl)), nullptr, nullptr);
    ::SetWindowPos(tree, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void COptionsPropertySheet::FillTree()
{
    if (m_root->HideIfRootCategory()) return InsertChildren(*m_root, TVI_ROOT);
    const HTREEITEM root = InsertCategory(*m_root, TVI_ROOT);
    SendDlgItemMessage(treeControl, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(root));
}

HTREEITEM COptionsPropertySheet::InsertCategory(COptionsCategory& category, HTREEITEM parent)
{
    CString title = category.GetTitle();
    TVINSERTSTRUCTA insert{};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_CHILDREN;
    insert.item.pszText = title.GetBuffer(0);
    insert.item.cChildren = category.HasChildren();
    insert.item.lParam = reinterpret_cast<LPARAM>(&category);
    const auto item = reinterpret_cast<HTREEITEM>(
        SendDlgItemMessage(treeControl, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insert)));
    InsertChildren(category, item);
    return item;
}

void COptionsPropertySheet::InsertChildren(COptionsCategory& category, HTREEITEM parent)
{
    for (int k = 0; k < category.GetChildArray().GetSize(); ++k)
        InsertCategory(*category.GetChildArray()[k], parent);
}

COptionsCategory* COptionsPropertySheet::CategoryOf(HTREEITEM item) const
{
    TVITEMA asked{};
    asked.mask = TVIF_PARAM | TVIF_HANDLE;
    asked.hItem = item;
    SendDlgItemMessage(treeControl, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&asked));
    return reinterpret_cast<COptionsCategory*>(asked.lParam);
}

// ---- Picking a category. The numbers and lines in the traces are part of their texts.
// ------------------------

void COptionsPropertySheet::OnSelChangedOptionsList(NMHDR*, LRESULT* result)
{
    *result = 0;
    const HWND tree = ::GetDlgItem(m_hWnd, treeControl);
    const bool hadFocus = ::GetFocus() == tree;
    const bool isRefused = !PickAnother();
    // Who goes through the tree by keys stays in it, unless there is a field to be mended.
    if (hadFocus && !isRefused && IsWindow(tree)) ::SetFocus(tree);
}

int COptionsPropertySheet::PickAnother()
{
    Log(u"2. COptionsPropertySheet::OnSelChangedOptionsList STARTS:");
    const auto item =
        reinterpret_cast<HTREEITEM>(SendDlgItemMessage(treeControl, TVM_GETNEXTITEM, TVGN_CARET));
    Log(u"3. COptionsPropertySheet::Got Selected Item.");
    if (!item || item == m_current) return 1;
    SetFocus(); // fields lose it and store their texts
    Log(u"4. COptionsPropertySheet::Focus Set");
    if (m_current && !LeaveCategory()) {
        SendDlgItemMessage(treeControl, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(m_current));
        return 0;
    }
    LoadCategory(item);
    return 1;
}

// 0: the user stays on the category that has the fault.
int COptionsPropertySheet::LeaveCategory()
{
    if (DataChanged() && (CancelDisabled() || StockMessageBox(this, message::saveCategoryChanges,
                                                              MB_YESNO | MB_ICONQUESTION) == IDYES)) {
        Log(u"5. COptionsPropertySheet::Previous data changed and saved.");
        return SaveCategory();
    }
    Log(u"6. COptionsPropertySheet::No previous data changes or not saved.");
    Current()->Cancel(this);
    return 1;
}

int COptionsPropertySheet::SaveCategory()
{
    return UpdateDataAllPages(1) && CommitAllPages() && Current()->SavePageData(this) > 0;
}

void COptionsPropertySheet::LoadCategory(HTREEITEM item)
{
    Log(u"8. COptionsPropertySheet::Loading of category started.");
    COptionsCategory* const category = CategoryOf(item);
    if (!category) {
        Log(u"9a. COptionsPropertySheet::pCat==NULL.");
        StockMessageBox(this, "Failed to get the category entry, aborting!", MB_OK);
        return;
    }
    SetDataChanged(0);
    Log(u"9. COptionsPropertySheet::Sheet properties set.");
    if (!category->CheckSelectOK(this)) {
        Log(u"10. COptionsPropertySheet::The Select is NOT OK!");
        RemoveAllPages();
        Log(u"11. COptionsPropertySheet::Removed all pages adding a blank page.");
        AddPage(new PPage_OptionsMgrBlank);
        Log(u"12. COptionsPropertySheet::Blank page added.");
        SetDataChanged(0);
        Log(u"13. COptionsPropertySheet::Sheet properties set, line 299.");
    } else {
        Log(u"14. COptionsPropertySheet::The Select is OK!");
        RemoveAllPages();
        Log(u"15. COptionsPropertySheet::Pages removed, preparing pages...");
        category->PreparePages(this, *this);
        Log(u"16. COptionsPropertySheet::Pages prepared, line 313.");
    }
    SetActivePage(0);
    Log(u"17. COptionsPropertySheet::Active page set.");
    m_current = item;
    Log(u"18. COptionsPropertySheet::DONE - LINE 158.");
}

// ---- The end ------------------------------------------------------------------------------------

void COptionsPropertySheet::OnOK()
{
    if (m_current && !DataChanged()) Current()->Cancel(this);
    if (m_current && DataChanged() && !SaveCategory()) return;
    EndDialog(IDOK);
}

void COptionsPropertySheet::OnCancel()
{
    if (m_current) Current()->Cancel(this);
    EndDialog(IDCANCEL);
}
