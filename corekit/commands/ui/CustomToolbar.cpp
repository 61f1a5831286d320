#include "corekit/commands/ui/CustomToolbar.h"

#include "corekit/commands/MacroBitmaps.h"
#include "corekit/commands/MacroProfile.h"
#include "corekit/framework/ui/CmdUI.h"
#include "corekit/framework/ui/DC.h"
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/platform/Messages.h"
#include "corekit/platform/SystemColours.h"

#include <algorithm>

using namespace corekit;
using namespace corekit::detail;

IMPLEMENT_DYNAMIC(CCustomToolbar, CDialogBar)

namespace {
constexpr UINT firstButton = 57348, lastButton = firstButton + maximumMacroButtons - 1;
constexpr int side = 38, step = 40, margin = 5, breadth = 48;
} // namespace

BEGIN_MESSAGE_MAP(CCustomToolbar, CDialogBar)
ON_COMMAND_RANGE(firstButton, lastButton, &CCustomToolbar::OnPress)
ON_UPDATE_COMMAND_UI_RANGE(firstButton, lastButton, &CCustomToolbar::OnUpdateButton)
END_MESSAGE_MAP()

UINT CCustomToolbar::s_uMacroMsg = RegisterWindowMessageA("Tavrix.Customtoolbar.Macro");

class CCustomToolbar::CMacroButton : public CButton {
public:
    CMacroButton(const CCustomToolbar& bar, const CDib* bitmap) : m_bar(bar), m_bitmap(bitmap) {}
    void DrawItem(DRAWITEMSTRUCT* item) override;

private:
    const CCustomToolbar& m_bar;
    const CDib* m_bitmap; // null: the name is shown
};

void CCustomToolbar::CMacroButton::DrawItem(DRAWITEMSTRUCT* item)
{
    CDC& dc = *CDC::FromHandle(item->hDC);
    CRect rect(item->rcItem);
    dc.DrawFrameControl(&rect, DFC_BUTTON,
                        DFCS_BUTTONPUSH | (item->itemState & ODS_SELECTED ? DFCS_PUSHED : 0));
    rect.DeflateRect(2, 2);
    if (m_bitmap) {
        rect.left += std::max(0, (largestMacroBitmap - m_bitmap->GetBitmapWidth()) / 2);
        rect.top += std::max(0, (largestMacroBitmap - m_bitmap->GetBitmapHeight()) / 2);
        return m_bitmap->DrawBitmap(dc, rect.TopLeft());
    }
    CString text;
    GetWindowText(text);
    const HGDIOBJ former = dc.SelectObject(m_bar.m_font.m_hObject);
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(GetSysColor(COLOR_BTNTEXT));
    dc.DrawText(text, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    dc.SelectObject(former);
}

struct CCustomToolbar::Button {
    Button(const CCustomToolbar& bar, const MacroButton& stored)
        : name(stored.name), command(stored.command), description(stored.description),
          bitmap(dibOf(stored.bitmap)), window(bar, bitmap.get())
    {
    }
    CString name, command, description;
    std::unique_ptr<CDib> bitmap;
    CMacroButton window;
};

CCustomToolbar::CCustomToolbar() { m_font.CreateFont(12, 0, 0, 0, 400, 0, 0, 0, 1, 4, 32, 0, 0, "Arial"); }

CCustomToolbar::~CCustomToolbar()
{
    if (m_hWnd) DestroyWindow();
}

int CCustomToolbar::Create(CFrameWnd* frame, UINT id, CPropertyStore* profile)
{
    if (!LoadProfile(profile)) return 0;
    m_frame = frame;
    m_dwStyle = CBRS_TOP;
    SetOwner(frame);
    if (!CWnd::Create(nullptr, "", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, CRect(), frame,
                      id))
        return 0;
    ConstructButtons();
    EnableDocking(CBRS_ALIGN_ANY);
    return 1;
}

int CCustomToolbar::LoadProfile(CPropertyStore* profile)
{
    m_buttons.clear();
    if (!profile) return 0;
    for (const MacroButton& stored : LoadMacroButtons(*profile))
        m_buttons.push_back(std::make_unique<Button>(*this, stored));
    if (m_hWnd) ConstructButtons();
    return !m_buttons.empty();
}

void CCustomToolbar::ConstructButtons()
{
    if (!m_tips.m_hWnd) m_tips.Create(this);
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        const int left = margin + step * static_cast<int>(i);
        const CRect rect(left, margin, left + side, margin + side);
        Button& button = *m_buttons[i];
        button.window.Create(button.name, WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, rect, this,
                             firstButton + static_cast<UINT>(i));
        m_tips.AddTool(&button.window, button.description);
    }
    PositionButtons();
}

CString CCustomToolbar::GetMacro(int button) const
{
    return button < 0 || button >= GetButtonCount() ? CString()
                                                    : m_buttons[static_cast<std::size_t>(button)]->command;
}

// ---- Layout

CSize CCustomToolbar::CalcFixedLayout(BOOL, BOOL horizontal)
{
    if (m_lies != (horizontal != 0)) {
        m_lies = horizontal != 0;
        PositionButtons();
    }
    const int length = (GetButtonCount() - 1) * step + breadth;
    return m_lies ? CSize(length, breadth) : CSize(breadth, length);
}

CSize CCustomToolbar::CalcDynamicLayout(int, DWORD mode)
{
    if (IsFloating()) return {GetButtonCount() * step + 8, breadth};
    return CalcFixedLayout(mode & LM_STRETCH, (mode & LM_HORZ) != 0);
}

void CCustomToolbar::PositionButtons()
{
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        const int along = margin + step * static_cast<int>(i);
        CButton& window = m_buttons[i]->window;
        if (window.m_hWnd) window.MoveWindow(m_lies ? along : margin, m_lies ? margin : along, side, side);
    }
}

// ---- Commands

void CCustomToolbar::OnPress(UINT id)
{
    const int index = static_cast<int>(id - firstButton);
    if (GetMacro(index).IsEmpty() || !m_frame || !m_frame->m_hWnd) return;
    m_frame->PostMessage(s_uMacroMsg, static_cast<WPARAM>(index));
    m_frame->SetFocus();
}

void CCustomToolbar::OnUpdateButton(CCmdUI* item) { item->Enable(TRUE); }

void CCustomToolbar::OnUpdateCmdUI(CFrameWnd*, BOOL disableIfNoHandler)
{
    UpdateDialogControls(this, disableIfNoHandler);
}

BOOL CCustomToolbar::PreTranslateMessage(MSG* message)
{
    if (m_tips.m_hWnd && message->message >= WM_MOUSEMOVE && message->message <= WM_MBUTTONDBLCLK)
        m_tips.RelayEvent(message);
    return CDialogBar::PreTranslateMessage(message);
}
