#include "corekit/framework/ui/PropertyPage.h"

#include "corekit/framework/Module.h"
#include "corekit/framework/ui/DialogWindow.h"
#include "corekit/platform/MulDiv.h"

IMPLEMENT_DYNAMIC(CPropertyPage, CDialog)

CPropertyPage::CPropertyPage(UINT templateId, UINT captionId) : CDialog(templateId), m_id(templateId)
{
    if (captionId) m_caption.LoadString(captionId);
}

CPropertyPage::CPropertyPage(const char* templateName, UINT captionId) : CDialog(templateName)
{
    if (captionId) m_caption.LoadString(captionId);
}

CPropertyPage::~CPropertyPage() = default;

const CString& CPropertyPage::GetCaption() const
{
    if (m_caption.IsEmpty())
        if (const auto dialog = AfxFindDialogTemplate(TemplateName()); dialog && dialog->caption)
            m_caption = dialog->caption;
    return m_caption;
}

CSize CPropertyPage::TemplateSize() const
{
    const auto dialog = AfxFindDialogTemplate(TemplateName());
    if (!dialog) return {};
    const DWORD units = static_cast<DWORD>(GetDialogBaseUnits());
    return {MulDiv(dialog->width, LOWORD(units), 4), MulDiv(dialog->height, HIWORD(units), 8)};
}

// Whatever frame its template asks for, within the sheet a page has none.
BOOL CPropertyPage::CreateIn(CWnd& sheet)
{
    const auto found = AfxFindDialogTemplate(TemplateName());
    if (!found) return FALSE;
    DialogTemplate dialog = *found;
    dialog.style = WS_CHILD | DS_CONTROL | WS_CLIPSIBLINGS;
    dialog.x = dialog.y = 0;
    return corekit::detail::createDialogFor(*this, dialog, sheet.GetSafeHwnd(), DialogProcedure);
}

BOOL CPropertyPage::OnKillActive() { return UpdateData(TRUE); }

BOOL CPropertyPage::OnApply()
{
    OnOK();
    return TRUE;
}

// Keys are the sheet's, which knows all pages.
BOOL CPropertyPage::PreTranslateMessage(MSG* message) { return CWnd::PreTranslateMessage(message); }
