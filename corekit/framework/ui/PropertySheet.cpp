#include "corekit/framework/ui/PropertySheet.h"

#include "corekit/framework/ui/DialogWindow.h"
#include "corekit/framework/ui/SafeHandle.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Tabs.h"
#include "corekit/resources/dialogs/Sheets.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CPropertySheet, CWnd)

CPropertySheet::CPropertySheet(UINT captionId, CWnd* parent, UINT selectPage) : m_parent(parent)
{
    m_caption.LoadString(captionId);
    m_psh.nStartPage = selectPage;
}

CPropertySheet::CPropertySheet(const char* caption, CWnd* parent, UINT selectPage)
    : m_caption(caption), m_parent(parent)
{
    m_psh.nStartPage = selectPage;
}

CPropertySheet::~CPropertySheet()
{
    if (m_hWnd) DestroyWindow();
}

// ---- Life ---------------------------------------------------------------------------------------

bool CPropertySheet::CreateSheet(CWnd* parent, DWORD style, DWORD exStyle)
{
    DialogTemplate dialog = corekit::detail::dialogs::sheet;
    if (style) dialog.style = style & ~WS_VISIBLE;
    dialog.exStyle = exStyle;
    m_active = -1;
    const CWnd* const owner = dialog.style & WS_CHILD ? parent : AfxGetSafeOwner(parent);
    return corekit::detail::createDialogFor(*this, dialog, owner ? owner->GetSafeHwnd() : nullptr,
                                            DialogProcedure);
}

INT_PTR CPropertySheet::DoModal()
{
    m_isModeless = false;
    if (!CreateSheet(m_parent, 0, 0)) return -1;
    const INT_PTR result = corekit::detail::runModalDialog(m_hWnd);
    if (m_hWnd) DestroyWindow();
    return result;
}

BOOL CPropertySheet::Create(CWnd* parent, DWORD style, DWORD exStyle)
{
    m_isModeless = true;
    m_psh.dwFlags |= PSH_MODELESS;
    if (!CreateSheet(parent, style, exStyle)) return FALSE;
    if (!style || style & WS_VISIBLE) ShowWindow(SW_SHOW);
    return TRUE;
}

void CPropertySheet::EndDialog(int result)
{
    if (m_isModeless)
        DestroyWindow();
    else if (m_hWnd)
        ::EndDialog(m_hWnd, result);
}

INT_PTR CPropertySheet::DialogProcedure(HWND dialog, UINT message, WPARAM, LPARAM)
{
    CWnd* const object = CWnd::FromHandlePermanent(dialog);
    if (message != WM_INITDIALOG || !object || !object->IsKindOf(RUNTIME_CLASS(CPropertySheet))) return FALSE;
    CPropertySheet& sheet = *static_cast<CPropertySheet*>(object);
    sheet.Build();
    return sheet.OnInitDialog();
}

void CPropertySheet::Build()
{
    SetWindowText(m_caption);
    for (int k = 0; k < m_pages.GetSize(); ++k) InsertTab(k);
    LayOut();
    const int first = static_cast<int>(m_psh.nStartPage);
    if (m_pages.GetSize()) BringToFront(first < m_pages.GetSize() ? first : 0);
}

// ---- Places -------------------------------------------------------------------------------------

CSize CPropertySheet::LargestPage() const
{
    CSize largest;
    for (int k = 0; k < m_pages.GetSize(); ++k) {
        const CSize size = m_pages[k]->TemplateSize();
        largest = {std::max(largest.cx, size.cx), std::max(largest.cy, size.cy)};
    }
    return largest;
}

void CPropertySheet::LayOut()
{
    CRect unit(0, 0, 4, 7);
    MapDialogRect(m_hWnd, &unit);
    const int gap = unit.right;
    CRect frame({gap, gap}, LargestPage());
    if (const CWnd* const tabs = GetTabControl(); tabs && !IsWizardSheet()) {
        tabs->SendMessage(TCM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&frame));
        frame.OffsetRect(gap - frame.left, gap - frame.top);
    }
    CRect row(0, 0, 50, 14);
    MapDialogRect(m_hWnd, &row);
    const int width = std::max(frame.right + gap, 3 * (row.right + gap) + gap);
    frame.right = width - gap;
    if (CWnd* const tabs = GetTabControl()) {
        tabs->MoveWindow(&frame);
        tabs->ShowWindow(IsWizardSheet() ? SW_HIDE : SW_SHOW);
    }
    row.OffsetRect(0, frame.bottom + unit.bottom);
    row.right = width;
    LayOutButtons(row);
    CRect outside(0, 0, width, row.bottom + unit.bottom);
    AdjustWindowRectEx(&outside, GetStyle(), FALSE, GetExStyle());
    SetWindowPos(nullptr, 0, 0, outside.Width(), outside.Height(),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    if (!(GetStyle() & WS_CHILD)) CenterWindow();
}

// From the right, those that the sheet has.
void CPropertySheet::LayOutButtons(CRect row)
{
    CRect unit(0, 0, 50, 4);
    MapDialogRect(m_hWnd, &unit);
    const bool wizard = IsWizardSheet();
    const struct {
        int id;
        bool isShown;
    } buttons[] = {
        {9, (m_psh.dwFlags & PSH_HASHELP) != 0},
        {ID_APPLY_NOW, !wizard && !(m_psh.dwFlags & PSH_NOAPPLYNOW)},
        {IDCANCEL, true},
        {IDOK, !wizard},
        {ID_WIZFINISH, wizard},
        {ID_WIZNEXT, wizard},
        {ID_WIZBACK, wizard},
    };
    int right = row.right - 2 * unit.bottom;
    for (const auto& button : buttons) {
        CWnd* const control = GetDlgItem(button.id);
        if (!control) continue;
        control->ShowWindow(button.isShown ? SW_SHOW : SW_HIDE);
        if (!button.isShown) continue;
        control->MoveWindow(right - unit.right, row.top, unit.right, row.Height());
        right -= unit.right + unit.bottom;
    }
    if (CWnd* const apply = GetDlgItem(ID_APPLY_NOW)) apply->EnableWindow(FALSE);
    if (wizard) SendMessage(DM_SETDEFID, ID_WIZNEXT);
}

CRect CPropertySheet::PageArea() const
{
    const CWnd* const tabs = GetTabControl();
    if (!tabs) return {};
    CRect area;
    tabs->GetWindowRect(&area);
    ScreenToClient(&area);
    if (!IsWizardSheet()) tabs->SendMessage(TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
    return area;
}

CWnd* CPropertySheet::GetTabControl() const { return m_hWnd ? GetDlgItem(ID_TAB_CONTROL) : nullptr; }

void CPropertySheet::SetTitle(const char* text)
{
    m_caption = text;
    if (m_hWnd) SetWindowText(m_caption);
}

// ---- Pages --------------------------------------------------------------------------------------

void CPropertySheet::InsertTab(int index)
{
    const CWnd* const tabs = GetTabControl();
    if (!tabs) return;
    CString caption = m_pages[index]->GetCaption();
    TCITEMA item{};
    item.mask = TCIF_TEXT;
    item.pszText = caption.GetBuffer(0);
    tabs->SendMessage(TCM_INSERTITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
}

void CPropertySheet::AddPage(CPropertyPage* page)
{
    if (!page) return;
    m_pages.Add(page);
    if (m_hWnd) InsertTab(m_pages.GetSize() - 1);
}

CPropertyPage* CPropertySheet::GetPage(int index) const
{
    return index >= 0 && index < m_pages.GetSize() ? m_pages[index] : nullptr;
}

int CPropertySheet::GetPageIndex(const CPropertyPage* page) const
{
    for (int k = 0; k < m_pages.GetSize(); ++k)
        if (m_pages[k] == page) return k;
    return -1;
}

int CPropertySheet::GetActiveIndex() const
{
    return m_hWnd ? m_active : std::min(static_cast<int>(m_psh.nStartPage), m_pages.GetSize() - 1);
}

void CPropertySheet::RemovePage(CPropertyPage* page)
{
    if (const int index = GetPageIndex(page); index >= 0) RemovePage(index);
}

void CPropertySheet::RemovePage(int index)
{
    CPropertyPage* const page = GetPage(index);
    if (!page) return;
    const bool wasActive = m_hWnd && index == m_active;
    m_pages.RemoveAt(index);
    if (index < m_active) --m_active;
    if (wasActive) m_active = -1;
    if (page->GetSafeHwnd()) page->DestroyWindow();
    if (!m_hWnd) return;
    if (const CWnd* const tabs = GetTabControl())
        tabs->SendMessage(TCM_DELETEITEM, static_cast<WPARAM>(index));
    if (wasActive && m_pages.GetSize()) BringToFront(std::min(index, m_pages.GetSize() - 1));
}

void CPropertySheet::LeaveActivePage()
{
    CPropertyPage* const page = m_hWnd ? GetPage(m_active) : nullptr;
    m_active = -1;
    if (page && page->GetSafeHwnd()) page->ShowWindow(SW_HIDE);
}

// Makes the page's window if need be; false if it refuses, and the former page stays in front.
bool CPropertySheet::BringToFront(int index)
{
    CPropertyPage* const page = GetPage(index);
    if (!page || (!page->GetSafeHwnd() && !page->CreateIn(*this))) return false;
    const int before = m_active;
    m_active = index;
    if (!page->OnSetActive() || !m_hWnd || GetPage(index) != page) {
        if (m_hWnd) m_active = before < m_pages.GetSize() ? before : -1;
        return false;
    }
    const CRect area = PageArea();
    CPropertyPage* const former = before != index ? GetPage(before) : nullptr;
    page->SetWindowPos(&CWnd::wndTop, area.left, area.top, area.Width(), area.Height(), SWP_SHOWWINDOW);
    if (former && former->GetSafeHwnd()) former->ShowWindow(SW_HIDE);
    if (const CWnd* const tabs = GetTabControl())
        tabs->SendMessage(TCM_SETCURSEL, static_cast<WPARAM>(index));
    return true;
}

BOOL CPropertySheet::SetActivePage(int index)
{
    if (!GetPage(index)) return FALSE;
    if (!m_hWnd) {
        m_psh.nStartPage = static_cast<UINT>(index);
        return TRUE;
    }
    if (index == m_active) return TRUE;
    if (CPropertyPage* const page = GetPage(m_active); page && page->GetSafeHwnd() && !page->OnKillActive())
        return FALSE;
    return m_hWnd && BringToFront(index);
}

void CPropertySheet::StepPages(int step)
{
    const int count = m_pages.GetSize();
    if (count > 1 && m_active >= 0) SetActivePage((m_active + step + count) % count);
}

// ---- Buttons ------------------------------------------------------------------------------------

BOOL CPropertySheet::ApplyPages()
{
    CPropertyPage* const active = GetActivePage();
    if (active && active->GetSafeHwnd() && !active->OnKillActive()) return FALSE;
    for (int k = 0; m_hWnd && k < m_pages.GetSize(); ++k) {
        CPropertyPage* const page = m_pages[k];
        if (!page->GetSafeHwnd() || page->OnApply()) continue;
        if (m_hWnd && GetPage(k) == page) BringToFront(k);
        return FALSE;
    }
    if (CWnd* const apply = m_hWnd ? GetDlgItem(ID_APPLY_NOW) : nullptr) apply->EnableWindow(FALSE);
    return m_hWnd != nullptr;
}

void CPropertySheet::ConfirmSheet(int result)
{
    if (ApplyPages()) EndDialog(result);
}

void CPropertySheet::CancelSheet()
{
    if (CPropertyPage* const page = GetActivePage(); page && !page->OnQueryCancel()) return;
    for (int k = 0; k < m_pages.GetSize(); ++k)
        if (m_pages[k]->GetSafeHwnd()) m_pages[k]->OnReset();
    if (m_hWnd) EndDialog(IDCANCEL);
}

void CPropertySheet::WizardStep(LRESULT answer, int step)
{
    if (answer == -1 || !m_hWnd) return;
    int index = m_active + step;
    if (answer != 0)
        for (index = 0;
             index < m_pages.GetSize() && m_pages[index]->GetTemplateId() != static_cast<UINT>(answer);)
            ++index;
    SetActivePage(index);
}

void CPropertySheet::OnButton(int id)
{
    CPropertyPage* const page = GetActivePage();
    switch (id) {
    case IDOK:
        return ConfirmSheet(IDOK);
    case IDCANCEL:
        return CancelSheet();
    case ID_APPLY_NOW:
        ApplyPages();
        return;
    case ID_WIZBACK:
        if (page) WizardStep(page->OnWizardBack(), -1);
        return;
    case ID_WIZNEXT:
        if (page) WizardStep(page->OnWizardNext(), 1);
        return;
    default: // ID_WIZFINISH
        if (page && page->OnKillActive() && m_hWnd && page->OnWizardFinish() && m_hWnd)
            EndDialog(ID_WIZFINISH);
    }
}

BOOL CPropertySheet::OnCommand(WPARAM wParam, LPARAM lParam)
{
    if (CWnd::OnCommand(wParam, lParam)) return TRUE;
    const int id = LOWORD(wParam);
    const bool isButton = id == IDOK || id == IDCANCEL || id == ID_APPLY_NOW || id == ID_WIZBACK ||
                          id == ID_WIZNEXT || id == ID_WIZFINISH;
    if (!m_hWnd || HIWORD(wParam) != 0 || !isButton) return FALSE;
    OnButton(id);
    return TRUE;
}

BOOL CPropertySheet::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
    if (header.idFrom != static_cast<UINT_PTR>(ID_TAB_CONTROL)) return CWnd::OnNotify(wParam, lParam, result);
    if (header.code == TCN_SELCHANGING) {
        CPropertyPage* const page = GetActivePage();
        *result = page && page->GetSafeHwnd() && !page->OnKillActive();
        return TRUE;
    }
    if (header.code != TCN_SELCHANGE) return CWnd::OnNotify(wParam, lParam, result);
    const CWnd* const tabs = GetTabControl();
    if (tabs && !BringToFront(static_cast<int>(tabs->SendMessage(TCM_GETCURSEL))) && GetTabControl())
        GetTabControl()->SendMessage(TCM_SETCURSEL, static_cast<WPARAM>(m_active));
    return TRUE;
}

void CPropertySheet::SetWizardButtons(DWORD flags)
{
    if (!m_hWnd) return;
    const bool hasFinish = m_psh.dwFlags & PSH_WIZARDHASFINISH;
    const bool finishes = flags & (PSWIZB_FINISH | PSWIZB_DISABLEDFINISH);
    const auto set = [this](int id, bool isShown, bool isEnabled) {
        CWnd* const button = GetDlgItem(id);
        if (!button) return;
        button->EnableWindow(isEnabled);
        button->ShowWindow(isShown ? SW_SHOW : SW_HIDE);
    };
    set(ID_WIZBACK, true, flags & PSWIZB_BACK);
    set(ID_WIZNEXT, hasFinish || !finishes, flags & PSWIZB_NEXT);
    set(ID_WIZFINISH, hasFinish || finishes, flags & PSWIZB_FINISH);
    SendMessage(DM_SETDEFID, flags & PSWIZB_NEXT ? ID_WIZNEXT : ID_WIZFINISH);
}

void CPropertySheet::SetFinishText(const char* text)
{
    if (!m_hWnd) return;
    SetDlgItemText(ID_WIZFINISH, text);
    SetWizardButtons(PSWIZB_FINISH);
}

void CPropertySheet::PressButton(int button)
{
    constexpr int ids[] = {ID_WIZBACK, ID_WIZNEXT, ID_WIZFINISH, IDOK, ID_APPLY_NOW, IDCANCEL};
    if (m_hWnd && button >= 0 && button < 6) OnButton(ids[button]);
}

LRESULT CPropertySheet::OnSheetMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case PSM_SETCURSEL:
        return SetActivePage(static_cast<int>(wParam));
    case PSM_CHANGED:
    case PSM_UNCHANGED:
        if (CWnd* const apply = GetDlgItem(ID_APPLY_NOW)) apply->EnableWindow(message == PSM_CHANGED);
        return 0;
    case PSM_CANCELTOCLOSE:
        if (CWnd* const cancel = GetDlgItem(IDCANCEL)) cancel->EnableWindow(FALSE);
        SetDlgItemText(IDOK, "Close");
        return 0;
    case PSM_SETWIZBUTTONS:
        SetWizardButtons(static_cast<DWORD>(lParam));
        return 0;
    case PSM_PRESSBUTTON:
        PressButton(static_cast<int>(wParam));
        return 0;
    case PSM_SETFINISHTEXT:
        SetFinishText(reinterpret_cast<const char*>(lParam));
        return 0;
    case PSM_GETTABCONTROL:
        return reinterpret_cast<LRESULT>(corekit::detail::safeHandle(GetTabControl()));
    default: // PSM_GETCURRENTPAGEHWND
        return reinterpret_cast<LRESULT>(GetActivePage() ? GetActivePage()->GetSafeHwnd() : nullptr);
    }
}

LRESULT CPropertySheet::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    constexpr UINT known[] = {PSM_SETCURSEL,     PSM_CHANGED,       PSM_UNCHANGED,
                              PSM_CANCELTOCLOSE, PSM_SETWIZBUTTONS, PSM_PRESSBUTTON,
                              PSM_SETFINISHTEXT, PSM_GETTABCONTROL, PSM_GETCURRENTPAGEHWND};
    if (std::ranges::find(known, message) != std::end(known)) return OnSheetMessage(message, wParam, lParam);
    return CWnd::WindowProc(message, wParam, lParam);
}

BOOL CPropertySheet::PreTranslateMessage(MSG* message)
{
    if (CWnd::PreTranslateMessage(message)) return TRUE;
    const bool isControl = message->message == WM_KEYDOWN && GetKeyState(VK_CONTROL) < 0 && !IsWizardSheet();
    if (isControl &&
        (message->wParam == VK_TAB || message->wParam == VK_PRIOR || message->wParam == VK_NEXT)) {
        const bool isBack = message->wParam == VK_PRIOR || GetKeyState(VK_SHIFT) < 0;
        StepPages(isBack ? -1 : 1);
        return TRUE;
    }
    return m_hWnd && IsDialogMessageA(m_hWnd, message);
}

BOOL CPropertySheet::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info)
{
    if (CWnd::OnCmdMsg(id, code, extra, info)) return TRUE;
    const bool isCommand =
        code == static_cast<int>(CN_COMMAND) || code == static_cast<int>(CN_UPDATE_COMMAND_UI);
    if (!isCommand || id < 0x8000 || id >= 0xF000) return FALSE;
    CWnd* const owner = GetParent();
    return owner && owner->OnCmdMsg(id, code, extra, info);
}

// --- what a page says to its sheet

CPropertySheet* CPropertyPage::ParentSheet() const
{
    CWnd* const parent = m_hWnd ? GetParent() : nullptr;
    return parent && parent->IsKindOf(RUNTIME_CLASS(CPropertySheet)) ? static_cast<CPropertySheet*>(parent)
                                                                     : nullptr;
}

void CPropertyPage::SetModified(BOOL changed)
{
    if (const CPropertySheet* const sheet = ParentSheet())
        sheet->SendMessage(changed ? PSM_CHANGED : PSM_UNCHANGED, reinterpret_cast<WPARAM>(m_hWnd));
}

void CPropertyPage::CancelToClose()
{
    if (const CPropertySheet* const sheet = ParentSheet()) sheet->SendMessage(PSM_CANCELTOCLOSE);
}
