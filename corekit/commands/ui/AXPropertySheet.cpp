#include "corekit/commands/ui/AXPropertySheet.h"

#include "corekit/platform/Tabs.h"

IMPLEMENT_DYNAMIC(CAXPropertySheet, CPropertySheet)

CAXPropertySheet::CAXPropertySheet() : CAXPropertySheet("No Caption Set") {}

CAXPropertySheet::CAXPropertySheet(UINT captionId, CWnd* parent, UINT selectPage)
    : CPropertySheet(captionId, parent, selectPage)
{
    m_psh.dwFlags |= PSH_NOAPPLYNOW;
}

CAXPropertySheet::CAXPropertySheet(const char* caption, CWnd* parent, UINT selectPage)
    : CPropertySheet(caption, parent, selectPage)
{
    m_psh.dwFlags |= PSH_NOAPPLYNOW;
}

CAXPropertySheet::~CAXPropertySheet()
{
    if (m_hWnd) DestroyWindow();
    for (int k = 0; m_autoDelete && k < GetPageCount(); ++k) delete GetPage(k);
}

INT_PTR CAXPropertySheet::DoModal()
{
    m_isModal = true;
    const INT_PTR result = CPropertySheet::DoModal();
    m_isModal = false;
    return result;
}

BOOL CAXPropertySheet::OnInitDialog()
{
    const BOOL result = CPropertySheet::OnInitDialog();
    CWnd* const tabs = GetTabControl();
    if (tabs && !m_multilineTabs) tabs->ModifyStyle(TCS_MULTILINE, 0);
    return result;
}

void CAXPropertySheet::SetCancelState(int enabled)
{
    if ((enabled != 0) == (m_cancelEnabled != 0)) return;
    m_cancelEnabled = enabled;
    if (m_isModal) {
        if (CWnd* const cancel = m_hWnd ? GetDlgItem(IDCANCEL) : nullptr) cancel->ShowWindow(SW_HIDE);
        return;
    }
    for (CWnd* above = m_hWnd ? GetParent() : nullptr; above; above = above->GetParent()) {
        if (!above->IsKindOf(RUNTIME_CLASS(CDialog))) continue;
        if (CWnd* const cancel = above->GetDlgItem(IDCANCEL)) cancel->ShowWindow(enabled ? SW_SHOW : SW_HIDE);
        return;
    }
}

CAXPropertyPage* CAXPropertySheet::GetActivePageEx() const { return GetPageEx(GetActiveIndex()); }

CAXPropertyPage* CAXPropertySheet::FindPageEx(CRuntimeClass* pageClass) const
{
    for (int k = 0; k < GetPageCount(); ++k)
        if (GetPage(k)->IsKindOf(pageClass))
            if (CAXPropertyPage* const page = GetPageEx(k)) return page;
    return nullptr;
}

void CAXPropertySheet::RemovePage(CPropertyPage* page)
{
    if (const int index = GetPageIndex(page); index >= 0) RemovePage(index);
}

void CAXPropertySheet::RemovePage(int index)
{
    CPropertyPage* const page = GetPage(index);
    CPropertySheet::RemovePage(index);
    if (m_autoDelete) delete page;
}

void CAXPropertySheet::RemoveAllPages()
{
    LeaveActivePage(); // no other takes its place on the way
    for (int k = GetPageCount() - 1; k >= 0; --k) RemovePage(k);
}

int CAXPropertySheet::CommitAllPages()
{
    for (int k = 0; k < GetPageCount(); ++k) {
        CPropertyPage* const page = GetPage(k);
        auto* const commits = dynamic_cast<corekit::detail::CommittingPage*>(page);
        if (commits && page->GetSafeHwnd() && !commits->CommitPage()) return 0;
    }
    return 1;
}

int CAXPropertySheet::UpdateDataAllPages(int save)
{
    for (int k = 0; k < GetPageCount(); ++k)
        if (CPropertyPage* const page = GetPage(k); page->GetSafeHwnd() && !page->UpdateData(save)) return 0;
    return 1;
}

void CAXPropertySheet::WizardPushPageID(UINT id)
{
    m_stack.push_back(id);
    while (m_stackLimit > 0 && static_cast<int>(m_stack.size()) > m_stackLimit)
        m_stack.erase(m_stack.begin());
}

long CAXPropertySheet::WizardPopPageID()
{
    if (m_stack.empty()) return -1;
    const UINT id = m_stack.back();
    m_stack.pop_back();
    return static_cast<long>(id);
}
