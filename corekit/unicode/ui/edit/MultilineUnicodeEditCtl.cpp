// The window's life, its settings, and what follows a change of text or cursor.
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtl.h"

#include "corekit/foundation/AcceleratorResource.h"
#include "corekit/framework/ui/SafeHandle.h"
#include "corekit/graphics/ui/SysColourMetricCache.h"
#include "corekit/platform/Cursors.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/SystemColours.h"
#include "corekit/resources/EditKeys.h"
#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtlSink.h"
#include "corekit/unicode/ui/UnicodeManager.h"

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(CMultilineUnicodeEditCtl, CWnd)

BEGIN_MESSAGE_MAP(CMultilineUnicodeEditCtl, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_SIZE()
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
ON_WM_GETDLGCODE()
ON_WM_PAINT()
ON_WM_CHAR()
ON_WM_KEYDOWN()
ON_WM_SYSKEYDOWN()
ON_WM_LBUTTONDOWN()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDBLCLK()
ON_WM_VSCROLL()
ON_WM_TIMER()
ON_COMMAND(editCommandCopy, &CMultilineUnicodeEditCtl::OnCCopy)
ON_COMMAND(editCommandCut, &CMultilineUnicodeEditCtl::OnCCut)
ON_COMMAND(editCommandPaste, &CMultilineUnicodeEditCtl::OnCPaste)
END_MESSAGE_MAP()

namespace {

constexpr int frameWidth = 2; // of the border, and what rows keep from the top

} // namespace

CString CMultilineUnicodeEditCtl::m_strClassName;

CMultilineUnicodeEditCtl::CMultilineUnicodeEditCtl() = default;

CMultilineUnicodeEditCtl::~CMultilineUnicodeEditCtl()
{
    DestroyWindow();
    if (m_accelerators) DestroyAcceleratorTable(m_accelerators);
}

BOOL CMultilineUnicodeEditCtl::Create(CWnd* parent, unsigned id, const CRect& rect)
{
    if (m_strClassName.IsEmpty())
        m_strClassName = AfxRegisterWndClass(0, LoadCursorA(nullptr, IDC_IBEAM), GetStockObject(BLACK_BRUSH));
    return CWnd::Create(m_strClassName, "", WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP, rect, parent,
                        id);
}

int CMultilineUnicodeEditCtl::OnCreate(CREATESTRUCTA* create)
{
    if (CWnd::OnCreate(create) == -1) return -1;
    UpdateSysColourMetricCache();
    m_manager = CUnicodeManager::Initialise(1);
    m_manager->GetControlsFontDescriptor(m_font);
    MakeRenderers(m_font, 0, 0);
    const bool rightToLeft = m_manager->IsLocaleRTL(m_manager->GetCurrentKeyboardLocale());
    m_model.SetAlignment(rightToLeft ? EditModel::centred : EditModel::left);
    m_accelerators = AfxLoadAccelerators(editKeys);
    setAccessibleText(m_hWnd, this);
    TextChanged();
    return 0;
}

void CMultilineUnicodeEditCtl::OnDestroy()
{
    RevokeSink();
    setAccessibleText(m_hWnd, nullptr);
    CWnd::OnDestroy();
}

void CMultilineUnicodeEditCtl::OnSize(UINT how, int width, int height)
{
    CWnd::OnSize(how, width, height);
    TextChanged();
}

std::u16string CMultilineUnicodeEditCtl::text()
{
    const StringW& text = m_model.Text();
    return {static_cast<const WCHAR*>(text), static_cast<std::size_t>(text.GetLength())};
}

UINT CMultilineUnicodeEditCtl::OnGetDlgCode() { return DLGC_WANTARROWS | DLGC_WANTALLKEYS | DLGC_WANTCHARS; }

void CMultilineUnicodeEditCtl::OnSetFocus(CWnd* before)
{
    CWnd::OnSetFocus(before);
    CreateSolidCaret(GetSystemMetrics(SM_CXBORDER), GetTextHeight());
    m_caretShown = true;
    if (m_highlightsAtFocus)
        m_model.HighlightAll();
    else
        m_model.ClearSelection();
    CursorMoved();
    ShowCaret();
}

void CMultilineUnicodeEditCtl::OnKillFocus(CWnd* next)
{
    CWnd::OnKillFocus(next);
    m_caretShown = false;
    HideCaret();
    DestroyCaret();
    Invalidate(FALSE);
    const HWND to = safeHandle(next);
    if (m_sink && to != m_hWnd && !(to && ::IsChild(to, m_hWnd))) m_sink->OnEditKillFocus();
}

// ---- Text and settings

void CMultilineUnicodeEditCtl::SetString(const WCHAR* text)
{
    m_model.SetString(text);
    TextChanged();
}

void CMultilineUnicodeEditCtl::ReplaceSel(const WCHAR* text)
{
    m_model.ReplaceSel(text);
    TextChanged();
}

void CMultilineUnicodeEditCtl::SetLimitText(short limit)
{
    m_model.SetLimit(limit);
    TextChanged();
}

void CMultilineUnicodeEditCtl::SetMakeUpper(int upper)
{
    m_model.SetMakeUpper(upper != 0);
    TextChanged();
}

void CMultilineUnicodeEditCtl::SetWrap(int wrap)
{
    m_model.SetWrapping(wrap ? Wrapping::on : Wrapping::off);
    TextChanged();
}

void CMultilineUnicodeEditCtl::SetBorder(int border) { m_model.SetBorder(border != 0); }
void CMultilineUnicodeEditCtl::SetAlignment(int alignment) { m_model.SetAlignment(alignment); }
void CMultilineUnicodeEditCtl::SetInitialHighlightOff() { m_highlightsAtFocus = false; }

void CMultilineUnicodeEditCtl::SetColours(COLORREF text, COLORREF back)
{
    m_textColour = text;
    m_backColour = back;
    if (m_hWnd) Invalidate(FALSE);
}

// With a face that is not there everything stays as it was.
void CMultilineUnicodeEditCtl::SetFontData(const char* combinedFont, int bold, int italic)
{
    const CFontDescriptor font{static_cast<const WCHAR*>(StringW(combinedFont))};
    try {
        MakeRenderers(font, bold, italic);
    } catch (CException*) {
        MakeRenderers(m_font, m_bold, m_italic);
        throw;
    }
    m_font = font;
    m_bold = bold;
    m_italic = italic;
    m_model.ForgetLines();
    m_textHeight = 0;
    m_shown.Forget();
    if (m_caretShown) {
        CreateSolidCaret(GetSystemMetrics(SM_CXBORDER), GetTextHeight());
        ShowCaret();
    }
    TextChanged();
}

void CMultilineUnicodeEditCtl::MakeRenderers(const CFontDescriptor& font, int bold, int italic)
{
    m_measureRenderer.CreateFromDescriptor(font, bold, 0, italic);
    m_paintRenderer.CreateFromDescriptor(font, bold, 0, italic);
    m_ruler.Forget();
}

int CMultilineUnicodeEditCtl::GetTextHeight()
{
    if (m_textHeight <= 0) m_textHeight = m_ruler.Height(u"W", 1);
    return m_textHeight;
}

// ---- What follows a change

void CMultilineUnicodeEditCtl::LookAround()
{
    if (!m_manager) return;
    CRect client;
    GetClientRect(&client);
    m_model.SetClientSize(client.right, client.bottom);
    m_model.SetTextHeight(GetTextHeight());
    m_model.SetOrder(m_manager->IsBIDIEnabled(TRUE) ? TextOrder::bidirectional : TextOrder::asStored);
}

void CMultilineUnicodeEditCtl::TextChanged()
{
    if (!m_manager || !m_hWnd) return;
    LookAround();
    UpdateScrollBar();
    CursorMoved();
}

void CMultilineUnicodeEditCtl::CursorMoved()
{
    if (!m_manager || !m_hWnd) return;
    LookAround();
    m_model.UpdateCaret();
    if (GetScrollPos(SB_VERT) != m_model.TopLine()) SetScrollPos(SB_VERT, m_model.TopLine());
    if (m_caretShown) SetCaretPos(m_model.Caret());
    const int height = std::max(m_model.TextHeight(), 1),
              rows = (m_model.ClientHeight() - frameWidth) / height + 1;
    const RowSpan changed = m_shown.Update(m_model, rows);
    if (changed == RowSpan{0, rows})
        Invalidate(FALSE);
    else if (changed.last > changed.first)
        InvalidateRect(CRect(0, frameWidth + changed.first * height, m_model.ClientWidth(),
                             frameWidth + changed.last * height),
                       FALSE);
    tellAccessibleText(m_hWnd);
}
