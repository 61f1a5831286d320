// A dialog as an object.
//
//     class CNameDialog : public CDialog {
//     public:
//         CNameDialog() : CDialog(120) {}          // a template of some module
//         CString m_name;
//     protected:
//         void DoDataExchange(CDataExchange* exchange) override { DDX_Text(exchange, 1001, m_name); }
//     };
//
//     CNameDialog dialog;
//     if (dialog.DoModal() == IDOK) Use(dialog.m_name);
//
// The object is its owner's; its window lives from Create to DestroyWindow, or within DoModal.
#pragma once

#include "corekit/framework/MessageBox.h"
#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Dialogs.h"

class COREKIT_API CDialog : public CWnd {
    DECLARE_DYNAMIC(CDialog)
public:
    CDialog() = default;
    // A template by number or name, and the window over which it comes, null for the main window.
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    explicit CDialog(const char* templateName, CWnd* parent = nullptr);
    ~CDialog() override;

    // A dialog that stands beside the others, shown if its template says so. 0 if there is no such template
    // or a window could not be made.
    using CWnd::Create;
    BOOL Create(UINT templateId, CWnd* parent = nullptr);
    BOOL Create(const char* templateName, CWnd* parent = nullptr);
    BOOL CreateIndirect(const DialogTemplate& dialog, CWnd* parent = nullptr);
    // Runs until EndDialog and returns its result; -1 if the dialog could not be made. Where nobody can see
    // windows, what closing it gives.
    virtual INT_PTR DoModal();
    void EndDialog(int result);

    void MapDialogRect(RECT* rect) const { ::MapDialogRect(m_hWnd, rect); } // from dialog units to pixels
    void NextDlgCtrl() const { SendMessage(WM_NEXTDLGCTL, 0, 0); }
    void PrevDlgCtrl() const { SendMessage(WM_NEXTDLGCTL, 1, 0); }
    void GotoDlgCtrl(CWnd* control);
    void SetDefID(UINT id) { SendMessage(DM_SETDEFID, id); }
    DWORD GetDefID() const { return static_cast<DWORD>(SendMessage(DM_GETDEFID)); }

    // Once, before the dialog is shown: fills the controls. True gives the focus to the first control.
    virtual BOOL OnInitDialog();

    BOOL PreTranslateMessage(MSG* message) override;
    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;

protected:
    // Takes the controls' contents and ends with IDOK, unless they are refused.
    virtual void OnOK();
    virtual void OnCancel(); // ends with IDCANCEL
    // What a window of this object does with WM_INITDIALOG.
    static INT_PTR DialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

    const char* TemplateName() const;

    DECLARE_MESSAGE_MAP()

private:
    BOOL CreateFrom(const char* name, CWnd* parent);

    UINT m_templateId = 0;
    CString m_templateName; // in place of the number
    CWnd* m_pParentWnd = nullptr;
};
