#include "corekit/framework/ui/Dialog.h"

#include "corekit/framework/Module.h"
#include "corekit/framework/ResourceTypes.h"
#include "corekit/framework/ui/DialogWindow.h"
#include "corekit/framework/ui/SafeHandle.h"
#include "corekit/framework/WinApp.h"

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()

CDialog::CDialog(UINT templateId, CWnd* parent) : m_templateId(templateId), m_pParentWnd(parent) {}

CDialog::CDialog(const char* templateName, CWnd* parent) : m_templateName(templateName), m_pParentWnd(parent)
{
}

CDialog::~CDialog()
{
    if (m_hWnd) DestroyWindow();
}

const char* CDialog::TemplateName() const
{
    return m_templateName.IsEmpty() ? MAKEINTRESOURCEA(static_cast<WORD>(m_templateId))
                                    : static_cast<const char*>(m_templateName);
}

BOOL CDialog::CreateFrom(const char* name, CWnd* parent)
{
    const auto dialog = AfxFindDialogTemplate(name);
    return dialog && CreateIndirect(*dialog, parent);
}

BOOL CDialog::Create(UINT templateId, CWnd* parent)
{
    m_templateId = templateId;
    m_templateName.Empty();
    return CreateFrom(TemplateName(), parent);
}

BOOL CDialog::Create(const char* templateName, CWnd* parent)
{
    m_templateName = templateName;
    return CreateFrom(TemplateName(), parent);
}

BOOL CDialog::CreateIndirect(const DialogTemplate& dialog, CWnd* parent)
{
    const CWnd* const owner = dialog.style & WS_CHILD ? parent : AfxGetSafeOwner(parent);
    return corekit::detail::createDialogFor(*this, dialog, owner ? owner->GetSafeHwnd() : nullptr,
                                            DialogProcedure);
}

INT_PTR CDialog::DoModal()
{
    const auto found = AfxFindDialogTemplate(TemplateName());
    if (!found) return -1;
    DialogTemplate dialog = *found;
    dialog.style &= ~(WS_VISIBLE | WS_CHILD);
    if (!CreateIndirect(dialog, m_pParentWnd)) return -1;
    const INT_PTR result = corekit::detail::runModalDialog(m_hWnd);
    if (m_hWnd) DestroyWindow();
    return result;
}

void CDialog::EndDialog(int result)
{
    if (m_hWnd) ::EndDialog(m_hWnd, result);
}

void CDialog::GotoDlgCtrl(CWnd* control)
{
    SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(corekit::detail::safeHandle(control)), 1);
}

INT_PTR CDialog::DialogProcedure(HWND dialog, UINT message, WPARAM, LPARAM)
{
    CWnd* const object = CWnd::FromHandlePermanent(dialog);
    if (message != WM_INITDIALOG || !object || !object->IsKindOf(RUNTIME_CLASS(CDialog))) return FALSE;
    return static_cast<CDialog*>(object)->OnInitDialog();
}

BOOL CDialog::OnInitDialog()
{
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::OnOK()
{
    if (UpdateData(TRUE)) EndDialog(IDOK);
}

void CDialog::OnCancel() { EndDialog(IDCANCEL); }

BOOL CDialog::PreTranslateMessage(MSG* message)
{
    return CWnd::PreTranslateMessage(message) || (m_hWnd && ::IsDialogMessageA(m_hWnd, message));
}

// What a dialog does not handle, its owner and the application may.
BOOL CDialog::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info)
{
    if (CWnd::OnCmdMsg(id, code, extra, info)) return TRUE;
    const bool isCommand =
        code == static_cast<int>(CN_COMMAND) || code == static_cast<int>(CN_UPDATE_COMMAND_UI);
    if (!isCommand || id < 0x8000 || id >= 0xF000) return FALSE;
    if (CWnd* const owner = GetParent(); owner && owner->OnCmdMsg(id, code, extra, info)) return TRUE;
    CWinThread* const thread = AfxGetThread();
    return thread && thread->OnCmdMsg(id, code, extra, info);
}
