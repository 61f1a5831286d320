// A page of a property sheet or wizard: a dialog that lies in a frame with others.
//
// The sheet makes the page's window when the page is first shown. Members are filled from the controls when
// the page is left (OnKillActive), and stored for good when the sheet is confirmed (OnApply).
//
// The page object is its owner's and goes after the sheet's window. In a wizard nothing is filled by itself:
// call UpdateData in OnWizardBack, OnWizardNext or OnWizardFinish. User-interface thread.
//
//     class CFontPage : public CPropertyPage {
//     public:
//         CFontPage() : CPropertyPage(140) {}
//         int m_size = 24;
//     protected:
//         void DoDataExchange(CDataExchange* exchange) override { DDX_Text(exchange, 1001, m_size); }
//     };
#pragma once

#include "corekit/framework/ui/Dialog.h"

class CPropertySheet;

// Buttons of a wizard. Those that CPropertySheet::SetWizardButtons enables; the last one shows Finish and
// keeps it grey.
inline constexpr DWORD PSWIZB_BACK = 1, PSWIZB_NEXT = 2, PSWIZB_FINISH = 4, PSWIZB_DISABLEDFINISH = 8;

class COREKIT_API CPropertyPage : public CDialog {
    DECLARE_DYNAMIC(CPropertyPage)
public:
    // The tab shows the caption's text, with 0 the template's. A template of some module; it need not be
    // there before the page is shown.
    explicit CPropertyPage(UINT templateId, UINT captionId = 0);
    explicit CPropertyPage(const char* templateName, UINT captionId = 0);
    ~CPropertyPage() override;

    // Nothing happens while the page has no window in a sheet.
    void SetModified(BOOL changed = TRUE); // the sheet's Apply button
    void CancelToClose();                  // what was done cannot be undone: OK becomes Close, Cancel grey

    UINT GetTemplateId() const { return m_id; } // 0 for a template with a name
    const CString& GetCaption() const;          // read from the template when first asked for

    // The page comes to the front; 0: it does not, and the one before stays.
    virtual BOOL OnSetActive() { return TRUE; }
    // It is about to be left; 0: it stays. Here UpdateData decides.
    virtual BOOL OnKillActive();
    // The sheet is confirmed; 0: it stays open with this page in front. Called for every page that has been
    // shown; here OnOK.
    virtual BOOL OnApply();
    virtual void OnReset() { OnCancel(); } // the sheet is cancelled; for every page that has been shown
    // Asked of the page in front before the sheet is cancelled; 0: it goes on.
    virtual BOOL OnQueryCancel() { return TRUE; }
    // 0: the page before or behind; -1: stay; else the template of the page to go to.
    virtual LRESULT OnWizardBack() { return 0; }
    virtual LRESULT OnWizardNext() { return 0; }
    virtual BOOL OnWizardFinish() { return TRUE; } // 0: stay; else the sheet ends with ID_WIZFINISH

    // Keys are the sheet's.
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    void OnOK() override {} // called by OnApply
    void OnCancel() override {}
    // Null without a window.
    CPropertySheet* ParentSheet() const;

private:
    friend class CPropertySheet;
    // Within the sheet, without a frame of its own; 0 without its template.
    BOOL CreateIn(CWnd& sheet);
    CSize TemplateSize() const; // pixels

    UINT m_id = 0;
    mutable CString m_caption; // empty until it is known
};
