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

// m_psh.dwFlags: a wizard with Next and Finish side by side; a wizard; no Apply button; a Help button; a
// modeless sheet, set by Create.
inline constexpr DWORD PSH_WIZARDHASFINISH = 0x10, PSH_WIZARD = 0x20, PSH_NOAPPLYNOW = 0x80,
                       PSH_HASHELP = 0x200, PSH_MODELESS = 0x400;

// Messages to the sheet's window; each has an operation of its own below or at CPropertyPage.
inline constexpr UINT PSM_SETCURSEL = WM_USER + 101;                              // wParam: index
inline constexpr UINT PSM_CHANGED = WM_USER + 104, PSM_UNCHANGED = WM_USER + 109; // wParam: HWND of the page
inline constexpr UINT PSM_CANCELTOCLOSE = WM_USER + 107;                          // OK becomes Close
inline constexpr UINT PSM_SETWIZBUTTONS = WM_USER + 112;                          // lParam: PSWIZB_
inline constexpr UINT PSM_PRESSBUTTON = WM_USER + 113;                            // wParam: PSBTN_
inline constexpr UINT PSM_SETFINISHTEXT = WM_USER + 115;                          // lParam: const char*
inline constexpr UINT PSM_GETTABCONTROL = WM_USER + 116;                          // answers its HWND
inline constexpr UINT PSM_GETCURRENTPAGEHWND = WM_USER + 118; // answers that of the page in front
// For PressButton.
inline constexpr int PSBTN_BACK = 0, PSBTN_NEXT = 1, PSBTN_FINISH = 2, PSBTN_OK = 3, PSBTN_APPLYNOW = 4,
                     PSBTN_CANCEL = 5;

// Ids within the sheet.
inline constexpr int ID_TAB_CONTROL = 0x3020, ID_APPLY_NOW = 0x3021, ID_WIZBACK = 0x3023, ID_WIZNEXT = 0x3024,
                     ID_WIZFINISH = 0x3025;

// What DoModal and Create go by; may be changed before.
struct PROPSHEETHEADERA {
    DWORD dwFlags;   // PSH_
    UINT nStartPage; // index of the page that comes to the front first
};

class COREKIT_API CPropertySheet : public CWnd {
    DECLARE_DYNAMIC(CPropertySheet)
public:
    CPropertySheet() = default;
    // A text of the string table.
    explicit CPropertySheet(UINT captionId, CWnd* parent = nullptr, UINT selectPage = 0);
    // `parent` null is the main window; `selectPage` is the page in front at first.
    explicit CPropertySheet(const char* caption, CWnd* parent = nullptr, UINT selectPage = 0);
    // Destroys the window; pages stay.
    ~CPropertySheet() override;

    PROPSHEETHEADERA m_psh{}; // flags and first page

    // IDOK or IDCANCEL, ID_WIZFINISH of a wizard; -1 if the sheet could not be made. Blocks until the sheet
    // ends; its owner takes no input meanwhile.
    virtual INT_PTR DoModal();
    // A sheet beside the other windows. Style 0: a frame with a caption. 0 on failure.
    using CWnd::Create;
    // Shown at once with style 0 or WS_VISIBLE. With WS_CHILD it lies within `parent`.
    BOOL Create(CWnd* parent = nullptr, DWORD style = 0, DWORD exStyle = 0);
    void EndDialog(int result); // a modeless one is destroyed

    // All of these work before the sheet has a window, too. At the end; null is disregarded. The frame keeps
    // the size that it has.
    void AddPage(CPropertyPage* page);
    // Nothing happens for a page that is not here.
    void RemovePage(CPropertyPage* page);
    void RemovePage(int index); // takes the page's window away; the next one comes to the front
    int GetPageCount() const { return m_pages.GetSize(); }
    CPropertyPage* GetPage(int index) const;           // null outside
    int GetPageIndex(const CPropertyPage* page) const; // -1: not here
    // -1 without a page in front; before there is a window the one that will be.
    int GetActiveIndex() const;
    CPropertyPage* GetActivePage() const { return GetPage(GetActiveIndex()); }
    // Asks the page in front first. 0 if that or the new page refuses, or there is no such page. Before
    // there is a window it chooses the first page.
    BOOL SetActivePage(int index);
    BOOL SetActivePage(CPropertyPage* page) { return SetActivePage(GetPageIndex(page)); }
    // The caption, also before there is a window.
    void SetTitle(const char* text);

    // Before DoModal or Create.
    void SetWizardMode() { m_psh.dwFlags |= PSH_WIZARD; }
    // PSWIZB_; nothing happens before there is a window.
    void SetWizardButtons(DWORD flags);
    // Shows and enables the Finish button with this text alone.
    void SetFinishText(const char* text);
    void PressButton(int button); // PSBTN_
    CWnd* GetTabControl() const;  // temporary; hidden in a wizard

    // Once, with the first page in front, before the sheet is shown.
    virtual BOOL OnInitDialog() { return TRUE; }

    // Ctrl+Tab and Ctrl+Page Down go to the next page, with Shift or Page Up to the one before; a wizard
    // leaves them.
    BOOL PreTranslateMessage(MSG* message) override;
    // Commands that are no control's go on to the owner.
    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;

protected:
    // The sheet's own buttons.
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    // Asks and changes pages as the user chooses tabs.
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
    bool CreateSheet(CWnd* parent, DWORD style, DWORD exStyle); // false on failure
    void Build();                                               // tabs, places, the first page
    void LayOutButtons(CRect row);
    CSize LargestPage() const; // pixels, by the templates
    bool IsWizardSheet() const { return m_psh.dwFlags & PSH_WIZARD; }
    void InsertTab(int index);
    bool LeaveForGood(int index);
    bool BringToFront(int index);
    void StepPages(int step);                  // round in a circle
    void WizardStep(LRESULT answer, int step); // to the page that the answer names
    void OnButton(int id);
    void ConfirmSheet(int result); // applies, and ends if no page refuses
    void CancelSheet();            // asks, resets, ends
    LRESULT OnSheetMessage(UINT message, WPARAM wParam, LPARAM lParam);

    CArray<CPropertyPage*, CPropertyPage*> m_pages; // not owned
    CString m_caption;
    CWnd* m_parent = nullptr;
    int m_active = -1; // the page in front, while there is a window
    bool m_isModeless = false;
};
