#include "corekit/framework/ui/ToolBar.h"

#include "corekit/framework/BarLayout.h"
#include "corekit/framework/ui/CmdUI.h"
#include "corekit/framework/ui/DC.h"
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/framework/ui/WindowDC.h"

#include <algorithm>
#include <utility>

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(CToolBar, CControlBar)

BEGIN_MESSAGE_MAP(CToolBar, CControlBar)
ON_WM_SIZE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDBLCLK()
ON_WM_MOUSEMOVE()
ON_WM_MOUSELEAVE()
ON_WM_CAPTURECHANGED()
ON_WM_SYSCOLORCHANGE()
END_MESSAGE_MAP()

// The pictures of one size, and how they look where their button is disabled.
struct CToolBar::Strip {
    CSize size;
    CImageList images, faint;
};

namespace {

constexpr int separatorWidth = 8;
constexpr COLORREF nothing = RGB(0xC0, 0xC0, 0xC0);

// Halfway from the picture's brightness to the bar's colour.
COLORREF faintOf(COLORREF colour, COLORREF face)
{
    const auto part = [](COLORREF of, int which) { return static_cast<int>(of >> (8 * which) & 0xFF); };
    const int grey = (part(colour, 0) * 3 + part(colour, 1) * 6 + part(colour, 2)) / 10;
    const auto mix = [&](int which) { return static_cast<BYTE>((grey + 2 * part(face, which)) / 3); };
    return RGB(mix(0), mix(1), mix(2));
}

// Appends the faint form of the next picture of the list that lacks one.
void addFaint(CImageList& images, CImageList& faint, CSize size)
{
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    CClientDC screen(nullptr);
    CDC dc;
    dc.CreateCompatibleDC(&screen);
    CBitmap bitmap;
    bitmap.Attach(CreateCompatibleBitmap(screen, size.cx, size.cy));
    CBitmap* const former = dc.SelectObject(&bitmap);
    dc.FillSolidRect(0, 0, size.cx, size.cy, face);
    images.Draw(dc, faint.GetImageCount(), CPoint(), ILD_TRANSPARENT);
    for (int y = 0; y < size.cy; ++y)
        for (int x = 0; x < size.cx; ++x)
            if (const COLORREF colour = dc.GetPixel(x, y); colour != face)
                dc.SetPixel(x, y, faintOf(colour, face));
    dc.SelectObject(former);
    faint.Add(static_cast<HBITMAP>(bitmap.m_hObject), face);
}

} // namespace

CToolBar::CToolBar() { SetBorders(4, 2, 4, 2); }

CToolBar::~CToolBar() = default;

BOOL CToolBar::Create(CWnd* parent, DWORD style, UINT id)
{
    m_dwStyle = style & CBRS_ALL;
    SetOwner(parent);
    return CWnd::Create(nullptr, nullptr, (style & ~CBRS_ALL) | WS_CLIPSIBLINGS, CRect(), parent, id);
}

// ---- Pictures

void CToolBar::SetButtonSize(CSize size)
{
    m_buttonSize = CSize(std::clamp<LONG>(size.cx, 1, longestBar), std::clamp<LONG>(size.cy, 1, longestBar));
    Changed();
}

int CToolBar::AddBitmap(int count, HBITMAP bitmap)
{
    auto strip =
        std::ranges::find_if(m_strips, [this](const auto& each) { return each->size == m_imageSize; });
    if (strip == m_strips.end()) {
        auto made = std::make_unique<Strip>();
        made->size = m_imageSize;
        const UINT kind = ILC_COLOR32 | ILC_MASK;
        if (!made->images.Create(m_imageSize.cx, m_imageSize.cy, kind, count, count) ||
            !made->faint.Create(m_imageSize.cx, m_imageSize.cy, kind, count, count))
            return -1;
        m_strips.push_back(std::move(made));
        strip = m_strips.end() - 1;
    }
    const int first = (*strip)->images.Add(bitmap, nothing);
    if (first < 0) return -1;
    const int number = static_cast<int>(m_pictures.size());
    const int added = std::min(count, (*strip)->images.GetImageCount() - first);
    for (int i = 0; i < added; ++i) m_pictures.push_back({strip->get(), first + i});
    return number;
}

// ---- Buttons

BOOL CToolBar::SetButtons(const UINT* commands, int count)
{
    m_buttons.clear();
    int picture = 0;
    for (int i = 0; i < count; ++i) {
        const UINT command = commands ? commands[i] : 0;
        const bool separates = command == 0;
        m_buttons.push_back({separates ? separatorWidth : picture++, static_cast<int>(command),
                             TBSTATE_ENABLED, separates ? TBSTYLE_SEP : TBSTYLE_BUTTON});
    }
    Changed();
    return TRUE;
}

BOOL CToolBar::GetButton(int index, TBBUTTON* button) const
{
    if (index < 0 || index >= GetButtonCount()) return FALSE;
    *button = m_buttons[static_cast<std::size_t>(index)];
    return TRUE;
}

BOOL CToolBar::InsertButton(int index, const TBBUTTON* button)
{
    if (index < 0 || index > GetButtonCount() || !button) return FALSE;
    m_buttons.insert(m_buttons.begin() + index, *button);
    Changed();
    return TRUE;
}

BOOL CToolBar::DeleteButton(int index)
{
    if (index < 0 || index >= GetButtonCount()) return FALSE;
    m_buttons.erase(m_buttons.begin() + index);
    Changed();
    return TRUE;
}

UINT CToolBar::GetItemID(int index) const
{
    TBBUTTON button{};
    return GetButton(index, &button) ? static_cast<UINT>(button.idCommand) : 0;
}

int CToolBar::CommandToIndex(UINT command) const
{
    const auto found = std::ranges::find(m_buttons, static_cast<int>(command), &TBBUTTON::idCommand);
    return found == m_buttons.end() ? -1 : static_cast<int>(found - m_buttons.begin());
}

BOOL CToolBar::SetState(UINT command, BYTE state, BOOL on)
{
    const int index = CommandToIndex(command);
    if (index < 0) return FALSE;
    const auto at = static_cast<std::size_t>(index);
    SetStateAt(at, static_cast<BYTE>(on ? m_buttons[at].fsState | state : m_buttons[at].fsState & ~state));
    return TRUE;
}

void CToolBar::SetStateAt(std::size_t index, BYTE state)
{
    if (std::exchange(m_buttons[index].fsState, state) == state) return;
    InvalidateButton(static_cast<int>(index));
}

void CToolBar::Changed()
{
    m_places.clear();
    m_hot = m_pressed = -1;
    if (m_hWnd) Invalidate();
}

// ---- Layout

std::vector<BarButton> CToolBar::Measures() const
{
    std::vector<BarButton> measures(m_buttons.size());
    for (std::size_t i = 0; i < measures.size(); ++i) {
        const TBBUTTON& button = m_buttons[i];
        measures[i].separator = button.fsStyle & TBSTYLE_SEP;
        measures[i].width = m_buttonSize.cx;
        if (measures[i].separator)
            measures[i].width = button.iBitmap > 0 ? std::min(button.iBitmap, longestBar) : separatorWidth;
        if (button.fsState & TBSTATE_HIDDEN) measures[i].width = 0;
    }
    return measures;
}

CSize CToolBar::CalcFixedLayout(BOOL stretch, BOOL horizontal)
{
    std::vector<BarButton> measures = Measures();
    CSize size = horizontal ? wrapButtons(measures, m_buttonSize.cy, longestBar)
                            : stackButtons(measures, m_buttonSize.cy);
    if (measures.empty()) size = m_buttonSize; // something to take hold of
    size += BordersOf(horizontal);
    if (stretch) (horizontal ? size.cx : size.cy) = longestBar;
    return size;
}

CSize CToolBar::CalcDynamicLayout(int length, DWORD mode)
{
    const bool asksDocked = mode & (LM_HORZDOCK | LM_VERTDOCK);
    if (asksDocked || !(m_dwStyle & CBRS_SIZE_DYNAMIC) || m_buttons.empty())
        return CalcFixedLayout(mode & LM_STRETCH, asksDocked ? mode & LM_HORZDOCK : mode & LM_HORZ);
    std::vector<BarButton> measures = Measures();
    const CSize borders = BordersOf(TRUE);
    int width = longestBar;
    if (mode & LM_MRUWIDTH)
        width = static_cast<int>(std::min<UINT>(m_nMRUWidth, longestBar));
    else if (length >= 0 && mode & LM_LENGTHY)
        width = widthForHeight(measures, m_buttonSize.cy, length - borders.cy);
    else if (length >= 0)
        width = length - borders.cx;
    const CSize size = wrapButtons(measures, m_buttonSize.cy, width);
    if (mode & LM_COMMIT) m_nMRUWidth = static_cast<UINT>(size.cx);
    return size + borders;
}

void CToolBar::Arrange() const
{
    if (!m_places.empty() || m_buttons.empty()) return;
    const bool stands = !(m_dwStyle & CBRS_FLOATING) && (m_dwStyle & CBRS_ORIENT_VERT);
    CRect inside;
    GetClientRect(&inside);
    CalcInsideRect(inside, !stands);
    std::vector<BarButton> measures = Measures();
    if (stands)
        stackButtons(measures, m_buttonSize.cy);
    else
        wrapButtons(measures, m_buttonSize.cy, m_dwStyle & CBRS_SIZE_DYNAMIC ? inside.Width() : longestBar);
    for (const BarButton& button : measures) m_places.push_back(button.rect + inside.TopLeft());
}

void CToolBar::OnSize(UINT how, int width, int height)
{
    m_places.clear();
    CControlBar::OnSize(how, width, height);
}

void CToolBar::OnBarStyleChange(DWORD former, DWORD style)
{
    m_places.clear();
    CControlBar::OnBarStyleChange(former, style);
}

BOOL CToolBar::GetItemRect(int index, RECT* rect) const
{
    if (index < 0 || index >= GetButtonCount()) return FALSE;
    Arrange();
    *rect = m_places[static_cast<std::size_t>(index)];
    return TRUE;
}

int CToolBar::ButtonAt(CPoint client) const
{
    Arrange();
    for (std::size_t i = 0; i < m_places.size(); ++i)
        if (m_places[i].PtInRect(client) && !(m_buttons[i].fsStyle & TBSTYLE_SEP)) return static_cast<int>(i);
    return -1;
}

// ---- Looks

void CToolBar::InvalidateButton(int index)
{
    CRect rect;
    if (m_hWnd && GetItemRect(index, &rect)) InvalidateRect(&rect);
}

void CToolBar::OnSysColorChange()
{
    for (const auto& strip : m_strips) ImageList_Remove(strip->faint, -1);
    CControlBar::OnSysColorChange();
    Invalidate();
}

void CToolBar::DoPaint(CDC* dc)
{
    DrawBorders(dc);
    Arrange();
    for (std::size_t i = 0; i < m_places.size(); ++i)
        if (dc->RectVisible(&m_places[i]) && !(m_buttons[i].fsState & TBSTATE_HIDDEN))
            DrawButton(*dc, i, m_places[i]);
}

void CToolBar::DrawButton(CDC& dc, std::size_t index, const CRect& rect)
{
    const TBBUTTON& button = m_buttons[index];
    const bool isHot = static_cast<int>(index) == m_hot;
    if (button.fsStyle & TBSTYLE_SEP) {
        if (rect.Width() < separatorWidth && rect.Height() > m_buttonSize.cy / 2) return;
        CRect line = rect;
        const bool lies = rect.Width() > rect.Height();
        (lies ? line.top : line.left) = (lies ? rect.CenterPoint().y : rect.CenterPoint().x) - 1;
        lies ? line.DeflateRect(2, 0) : line.DeflateRect(0, 2);
        dc.DrawEdge(&line, EDGE_ETCHED, lies ? BF_TOP : BF_LEFT);
        return;
    }
    const bool isDown = (isHot && m_pressed == m_hot) || button.fsState & (TBSTATE_PRESSED | TBSTATE_CHECKED);
    CRect face = rect;
    if (isDown) {
        if (button.fsState & TBSTATE_CHECKED) dc.FillSolidRect(&face, GetSysColor(COLOR_3DLIGHT));
        dc.DrawEdge(&face, BDR_SUNKENOUTER, BF_RECT);
    } else if (isHot && button.fsState & TBSTATE_ENABLED) {
        dc.DrawEdge(&face, BDR_RAISEDINNER, BF_RECT);
    }
    if (button.iBitmap < 0 || static_cast<std::size_t>(button.iBitmap) >= m_pictures.size()) return;
    const Picture& picture = m_pictures[static_cast<std::size_t>(button.iBitmap)];
    Strip& strip = *picture.strip;
    const int shift = isDown ? 1 : 0;
    const CPoint at(rect.left + (rect.Width() - strip.size.cx) / 2 + shift,
                    rect.top + (rect.Height() - strip.size.cy) / 2 + shift);
    if (button.fsState & TBSTATE_ENABLED) {
        strip.images.Draw(dc, picture.index, at, ILD_TRANSPARENT);
        return;
    }
    while (strip.faint.GetImageCount() <= picture.index) addFaint(strip.images, strip.faint, strip.size);
    strip.faint.Draw(dc, picture.index, at, ILD_TRANSPARENT);
}

// ---- Mouse

void CToolBar::SetHot(int index)
{
    if (index == m_hot) return;
    InvalidateButton(std::exchange(m_hot, index));
    InvalidateButton(m_hot);
    if (!(m_dwStyle & CBRS_TOOLTIPS)) return;
    if (!m_tips.m_hWnd) {
        if (!m_tips.Create(this)) return;
        m_tips.AddTool(this, "");
    }
    CString text;
    if (m_hot >= 0) text.LoadString(GetItemID(m_hot));
    const int end = text.Find('\n');
    m_tips.UpdateTipText(end < 0 ? text : text.Mid(end + 1), this);
}

void CToolBar::OnMouseMove(UINT flags, CPoint point)
{
    const int index = ButtonAt(point);
    const bool isCaptured = CWnd::GetCapture() == this;
    SetHot(m_pressed >= 0 && index != m_pressed ? -1 : index);
    if (!isCaptured) {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, m_hWnd, 0};
        TrackMouseEvent(&track);
    }
    CControlBar::OnMouseMove(flags, point);
}

void CToolBar::OnMouseLeave()
{
    SetHot(-1);
    CControlBar::OnMouseLeave();
}

bool CToolBar::PressAt(CPoint point)
{
    const int index = ButtonAt(point);
    if (index < 0) return false;
    if (!(m_buttons[static_cast<std::size_t>(index)].fsState & TBSTATE_ENABLED)) return true;
    m_pressed = m_hot = index;
    SetCapture();
    InvalidateButton(index);
    return true;
}

void CToolBar::OnLButtonDown(UINT flags, CPoint point)
{
    if (!PressAt(point)) CControlBar::OnLButtonDown(flags, point);
}

void CToolBar::OnLButtonDblClk(UINT flags, CPoint point)
{
    if (!PressAt(point)) CControlBar::OnLButtonDblClk(flags, point);
}

void CToolBar::OnLButtonUp(UINT flags, CPoint point)
{
    if (m_pressed < 0) return CControlBar::OnLButtonUp(flags, point);
    const int pressed = std::exchange(m_pressed, -1);
    InvalidateButton(pressed);
    ReleaseCapture();
    if (ButtonAt(point) != pressed) return;
    TBBUTTON& button = m_buttons[static_cast<std::size_t>(pressed)];
    if (button.fsStyle & TBSTYLE_CHECK)
        SetStateAt(static_cast<std::size_t>(pressed), button.fsState ^ TBSTATE_CHECKED);
    const auto command = static_cast<WPARAM>(static_cast<WORD>(button.idCommand));
    if (const CWnd* const owner = GetOwner())
        owner->SendMessage(WM_COMMAND, command, reinterpret_cast<LPARAM>(m_hWnd));
}

void CToolBar::OnCaptureChanged(CWnd* other)
{
    InvalidateButton(std::exchange(m_pressed, -1));
    CControlBar::OnCaptureChanged(other);
}

// ---- State of the commands

class CToolCmdUI final : public CCmdUI {
public:
    explicit CToolCmdUI(CToolBar& bar) : m_bar(bar) { m_pOther = &bar; }

    void Enable(BOOL on) override
    {
        m_bEnableChanged = TRUE;
        Set(TBSTATE_ENABLED, on);
    }
    void SetCheck(int check) override { Set(TBSTATE_CHECKED, check); }
    void SetText(const char*) override {}

private:
    void Set(BYTE state, int on)
    {
        if (m_nIndex >= m_bar.m_buttons.size()) return; // a handler took the button away
        const BYTE former = m_bar.m_buttons[m_nIndex].fsState;
        m_bar.SetStateAt(m_nIndex, static_cast<BYTE>(on ? former | state : former & ~state));
    }
    CToolBar& m_bar;
};

void CToolBar::OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler)
{
    CToolCmdUI state(*this);
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        if (m_buttons[i].fsStyle & TBSTYLE_SEP) continue;
        state.m_nIndex = static_cast<UINT>(i);
        state.m_nID = static_cast<UINT>(m_buttons[i].idCommand);
        state.DoUpdate(target, disableIfNoHandler);
    }
    UpdateDialogControls(target, disableIfNoHandler);
}
