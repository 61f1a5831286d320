#include "corekit/commands/ui/AXPropertyPage.h"

IMPLEMENT_DYNAMIC(CAXPropertyPage, CPropertyPage)

CAXPropertyPage::CAXPropertyPage(UINT templateId, UINT captionId) : CPropertyPage(templateId, captionId) {}
CAXPropertyPage::CAXPropertyPage(const char* templateName, UINT captionId)
    : CPropertyPage(templateName, captionId)
{
}
CAXPropertyPage::~CAXPropertyPage() = default;

// The page knows its sheet, so what makes one of the other's pages one of these stands here.
CAXPropertyPage* CAXPropertySheet::GetPageEx(int index) const
{
    CPropertyPage* const page = GetPage(index);
    return page && page->IsKindOf(RUNTIME_CLASS(CAXPropertyPage)) ? static_cast<CAXPropertyPage*>(page)
                                                                  : nullptr;
}

CAXPropertySheet* CAXPropertyPage::GetSheet() const
{
    CPropertySheet* const sheet = ParentSheet();
    return sheet && sheet->IsKindOf(RUNTIME_CLASS(CAXPropertySheet)) ? static_cast<CAXPropertySheet*>(sheet)
                                                                     : nullptr;
}

void CAXPropertyPage::SetModified(int changed)
{
    if (m_isLoading) return;
    if (CAXPropertySheet* const sheet = GetSheet()) sheet->SetDataChanged(changed);
    CPropertyPage::SetModified(changed);
    RefreshWizardButtons();
}

void CAXPropertyPage::CancelToClose()
{
    if (CAXPropertySheet* const sheet = GetSheet()) sheet->SetCancelState(0);
}

BOOL CAXPropertyPage::OnInitDialog()
{
    m_isLoading = true;
    CPropertyPage::OnInitDialog();
    LoadPage();
    UpdateData(FALSE);
    m_isLoading = false;
    return TRUE;
}

BOOL CAXPropertyPage::OnSetActive()
{
    if (!CPropertyPage::OnSetActive()) return FALSE;
    UpdateControls();
    RefreshWizardButtons();
    return TRUE;
}

void CAXPropertyPage::RefreshWizardButtons()
{
    CAXPropertySheet* const sheet = GetSheet();
    if (!sheet || !sheet->IsWizard()) return;
    DWORD buttons = WizardGetButtons();
    if (!(buttons & (PSWIZB_FINISH | PSWIZB_DISABLEDFINISH))) buttons |= PSWIZB_DISABLEDFINISH;
    sheet->SetWizardButtons(buttons);
}

BOOL CAXPropertyPage::OnKillActive()
{
    return CPropertyPage::OnKillActive() && (!m_commitOnKill || CommitPage());
}

BOOL CAXPropertyPage::OnApply() { return CommitPage() && CPropertyPage::OnApply(); }

LRESULT CAXPropertyPage::OnWizardNext()
{
    if (!UpdateData(TRUE) || !CommitPage()) return -1;
    return WizardNextPage();
}

LRESULT CAXPropertyPage::OnWizardBack() { return UpdateData(TRUE) ? WizardPreviousPage() : -1; }

BOOL CAXPropertyPage::OnWizardFinish() { return UpdateData(TRUE) && CommitPage() && WizardFinish(); }

long CAXPropertyPage::WizardNextPage()
{
    const long next = WizardGetNextPage();
    CAXPropertySheet* const sheet = GetSheet();
    if (next <= 0 || !sheet) return -1;
    sheet->WizardPushPageID(GetTemplateId());
    return next;
}

long CAXPropertyPage::WizardPreviousPage()
{
    CAXPropertySheet* const sheet = GetSheet();
    return sheet ? sheet->WizardPopPageID() : -1;
}

DWORD CAXPropertyPage::WizardGetButtons()
{
    const CAXPropertySheet* const sheet = GetSheet();
    const DWORD back = sheet && sheet->WizardAllowBack() ? PSWIZB_BACK : 0;
    const DWORD finish = WizardEnableFinishButton() ? PSWIZB_FINISH : PSWIZB_DISABLEDFINISH;
    return back | finish | (WizardEnableNextButton() ? PSWIZB_NEXT : 0);
}
