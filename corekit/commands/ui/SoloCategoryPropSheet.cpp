#include "corekit/commands/ui/SoloCategoryPropSheet.h"

#include "corekit/commands/ui/OptionsCategory.h"

IMPLEMENT_DYNAMIC(CSoloCategoryPropSheet, CAXPropertySheet)

BEGIN_MESSAGE_MAP(CSoloCategoryPropSheet, CAXPropertySheet)
ON_BN_CLICKED(IDOK, &CSoloCategoryPropSheet::OnOK)
ON_BN_CLICKED(IDCANCEL, &CSoloCategoryPropSheet::OnCancel)
END_MESSAGE_MAP()

CSoloCategoryPropSheet::CSoloCategoryPropSheet(UINT captionId, CWnd* parent, COptionsCategory& category)
    : CAXPropertySheet(captionId, parent, 0), m_category(&category)
{
    SetAutoDeleteMode(1);
}

BOOL CSoloCategoryPropSheet::OnInitDialog()
{
    const BOOL result = CAXPropertySheet::OnInitDialog();
    m_category->PreparePages(this, *this);
    LayOut();
    SetActivePage(0);
    return result;
}

void CSoloCategoryPropSheet::OnOK()
{
    if (!DataChanged())
        m_category->Cancel(this);
    else if (!UpdateDataAllPages(1) || !CommitAllPages() || !m_category->SavePageData(this))
        return;
    EndDialog(IDOK);
}

void CSoloCategoryPropSheet::OnCancel()
{
    m_category->Cancel(this);
    EndDialog(IDCANCEL);
}
