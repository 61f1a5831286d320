// A frame for pages: with tabs, or, as a wizard, one page after the other.
//
//     CPropertySheet sheet("Options");
//     sheet.AddPage(&general);
//     sheet.AddPage(&fonts);
//     if (sheet.DoModal() == IDOK) ...
//
// Pages are their owner's and must outlive the sheet's window. OK asks the page in front whether it may be
// left, then every page that has been shown to apply; the first that refuses comes to the front.
// User-interface thread only.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/framework/ui/PropertyPage.h"

// m_psh.dwFlags
inline constexpr DWORD PSH_WIZARDHASFINISH = 0x10, PSH_WIZARD = 0x20, PSH_NOAPPLYNOW = 0x80,
                       PSH_HASHELP = 0x200, PSH_MODELESS = 0x400;

inline constexpr UINT PSM_SETCURSEL = WM_USER + 101;                              // wParam: index
inline constexpr UINT PSM_CHANGED = WM_USER + 104, PSM_UNCHANGED = WM_USER + 109; // wParam: HWND of the page
inline constexpr UINT PSM_CANCELTOCLOSE = WM_USER + 107;
inline constexpr UINT PSM_SETWIZBUTTONS = WM_USER + 112; // lParam: PSWIZB_
inline constexpr UINT PSM_PRESSBUTTON = WM_USER + 113;   // wParam: PSBTN_
inline constexpr UINT PSM_SETFINISHTEXT = WM_USER + 115; // lParam: const char*
inline constexpr UINT PSM_GETTABCONTROL = WM_USER + 116;
inline constexpr UINT PSM_GETCURRENTPAGEHWND = WM_USER + 118;
inline constexpr int PSBTN_BACK = 0, PSBTN_NEXT = 1, PSBTN_FINISH = 2, PSBTN_OK = 3, PSBTN_APPLYNOW = 4,
                     PSBTN_CANCEL = 5;

// Ids within the sheet.
inline constexpr int ID_TAB_CONTROL = 0x3020, ID_APPLY_NOW = 0x3021, ID_WIZBACK = 0x3023, ID_WIZNEXT = 0x3024,
                     ID_WIZFINISH = 0x3025;

struct PROPSHEETHEADERA {
    DWORD dwFlags; // PSH_
    UINT nStartPage;
};

class COREKIT_API CPropertySheet : public CWnd {
    DECLARE_DYNAMIC(CPropertySheet)
public:
    CPropertySheet() = default;
    explicit CPropertySheet(UINT captionId, CWnd* parent = nullptr, UINT selectPage = 0);
    explicit CPropertySheet(const char* caption, CWnd* parent = nullptr, UINT selectPage = 0);
    ~CPropertySheet() override;

    PROPSHEETHEADERA m_psh{};

    // IDOK or IDCANCEL, ID_WIZFINISH of a wizard; -1 if the sheet could not be made.
    virtual INT_PTR DoModal();
    // A sheet beside the other windows. Style 0: a frame with a caption. 0 on failure.
    using CWnd::Create;
    BOOL Create(CWnd* parent = nullptr, DWORD style = 0, DWORD exStyle = 0);
    void EndDialog(int result); // a modeless one is destroyed

    // All of these work before the sheet has a window, too.
    void AddPage(CPropertyPage* page);
    void RemovePage(CPropertyPage* page);
    void RemovePage(int index); // takes the page's window away; the next one comes to the front
    int GetPageCount() const { return m_pages.GetSize(); }
    CPropertyPage* GetPage(int index) const;           // null outside
    int GetPageIndex(const CPropertyPage* page) const; // -1: not here
    int GetActiveIndex() const;
    CPropertyPage* GetActivePage() const { return GetPage(GetActiveIndex()); }
    // Asks the page in front first. 0 if that or the new page refuses, or there is no such page.
    BOOL SetActivePage(int index);
    BOOL SetActivePage(CPropertyPage* page) { return SetActivePage(GetPageIndex(page)); }
    void SetTitle(const char* text);

    void SetWizardMode() { m_psh.dwFlags |= PSH_WIZARD; }
    void SetWizardButtons(DWORD flags);
    void SetFinishText(const char* text);
    void PressButton(int button); // PSBTN_
    CWnd* GetTabControl() const;  // temporary; hidden in a wizard

    // Once, with the first page in front, before the sheet is shown.
    virtual BOOL OnInitDialog() { return TRUE; }

    BOOL PreTranslateMessage(MSG* message) override;
    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    // Gives the frame and its parts the size that the largest page needs.
    void LayOut();
    // Where pages lie, in client coordinates.
    virtual CRect PageArea() const;
    // Takes the window of the page in front away without another taking its place.
    void LeaveActivePage();
    // Applies all pages that have been shown; 0: one refused and is in front now.
    BOOL ApplyPages();

private:
    static INT_PTR DialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    bool CreateSheet(CWnd* parent, DWORD style, DWORD exStyle);
    void Build();
    void LayOutButtons(CRect row);
    CSize LargestPage() const;
    bool IsWizardSheet() const { return m_psh.dwFlags & PSH_WIZARD; }
    void InsertTab(int index);
    bool LeaveForGood(int index);
    bool BringToFront(int index);
    void StepPages(int step);
    void WizardStep(LRESULT answer, int step);
    void OnButton(int id);
    void ConfirmSheet(int result);
    void CancelSheet();
    LRESULT OnSheetMessage(UINT message, WPARAM wParam, LPARAM lParam);

    CArray<CPropertyPage*, CPropertyPage*> m_pages; // not owned
    CString m_caption;
    CWnd* m_parent = nullptr;
    int m_active = -1; // the page in front, while there is a window
    bool m_isModeless = false;
};
