#include "Panes.h"

#include "Commands.h"

#include "corekit/framework/ui/DockBar.h"
#include "corekit/framework/ui/ImageList.h"
#include "corekit/framework/ui/WindowDC.h"

#include <vector>

const Story stories[storyCount] = {
    {u"News", u"Good evening.\nThese are the headlines at eight."},
    {u"אקטואליה", u"ערב טוב.\nואלה הכותרות של שמונה."},
    {u"أخبار", u"مساء الخير.\nهذه عناوين الساعة الثامنة."},
    {u"خبریں", u"شب بخیر۔\nآٹھ بجے کی سرخیاں یہ ہیں۔"},
    {u"समाचार", u"नमस्कार।\nआठ बजे के मुख्य समाचार।"},
    {u"খবর", u"নমস্কার।\nআটটার শিরোনাম।"},
    {u"செய்தி", u"வணக்கம்.\nஎட்டு மணிச் செய்திகள்."},
};

namespace {

constexpr int pictureSide = 64, clipCount = 40;
constexpr UINT tabsId = 1, coloursId = 2;

// A gradient with a disc, of another hue for each clip.
void Paint(std::vector<BYTE>& pixels, int id)
{
    for (int y = 0; y < pictureSide; ++y) {
        for (int x = 0; x < pictureSide; ++x) {
            BYTE* const pixel = &pixels[static_cast<std::size_t>(4 * (y * pictureSide + x))];
            const int dx = x - 12 - id * 7 % 40, dy = y - 16 - id * 11 % 32;
            const bool isDisc = dx * dx + dy * dy < 100;
            pixel[0] = static_cast<BYTE>(isDisc ? 240 : 60 + (id * 53 + y * 2) % 160);
            pixel[1] = static_cast<BYTE>(isDisc ? 240 : 60 + (id * 97 + x * 2) % 160);
            pixel[2] = static_cast<BYTE>(isDisc ? 230 : 60 + (id * 31 + x + y) % 160);
            pixel[3] = 0xFF;
        }
    }
}

} // namespace

int WholeHeight(const CDockableWindow& pane)
{
    constexpr int margins = 8;
    return pane.m_pDockBar ? std::max(pane.m_pDockBar->GetRoom().Height() - margins, 60) : 300;
}

BEGIN_MESSAGE_MAP(ColourPicker, CWnd)
ON_WM_CREATE()
ON_WM_SIZE()
ON_COMMAND(tabsId, &ColourPicker::OnOther)
ON_LBN_SELCHANGE(coloursId, &ColourPicker::OnColour)
END_MESSAGE_MAP()

bool ColourPicker::Create(CWnd& parent, UINT id)
{
    return CWnd::Create(AfxRegisterWndClass(0), "", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, CRect(), &parent,
                        id);
}

int ColourPicker::OnCreate(CREATESTRUCTA* create)
{
    constexpr DWORD list = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_BORDER | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT;
    if (CWnd::OnCreate(create) == -1 || !m_for.Create(this, CRect(), tabsId) ||
        !m_colours.Create(list, CRect(), this, coloursId))
        return -1;
    m_for.AddTab(u"Text");
    m_for.AddTab(u"Ground");
    const struct {
        const char* name;
        COLORREF colour;
    } colours[] = {{"White", RGB(255, 255, 255)}, {"Yellow", RGB(252, 233, 79)}, {"Green", RGB(78, 154, 6)},
                   {"Blue", RGB(52, 101, 164)},   {"Red", RGB(204, 0, 0)},       {"Plum", RGB(117, 80, 123)},
                   {"Black", RGB(0, 0, 0)}};
    for (const auto& each : colours) m_colours.AddColour(each.name, each.colour);
    OnOther();
    return 0;
}

void ColourPicker::OnSize(UINT how, int width, int height)
{
    constexpr int tabs = 24;
    CWnd::OnSize(how, width, height);
    m_for.MoveWindow(0, 0, width, tabs);
    m_colours.MoveWindow(0, tabs, width, std::max(0, height - tabs));
}

COLORREF ColourPicker::GetColour() const
{
    COLORREF colour = m_shown[IsForGround()];
    m_colours.GetSelectedColour(colour);
    return colour;
}

void ColourPicker::ShowColours(COLORREF text, COLORREF ground)
{
    m_shown[0] = text;
    m_shown[1] = ground;
    OnOther();
}

void ColourPicker::OnOther() { m_colours.SelectColour(m_shown[IsForGround()]); }

void ColourPicker::OnColour()
{
    m_shown[IsForGround()] = GetColour();
    AfxGetMainWnd()->SendMessage(WM_COMMAND, commandColour);
}

int ColoursPane::OnCreateContents(CREATESTRUCTA*, void*) { return m_picker.Create(*this, contentsId); }

int PicturesPane::OnCreateContents(CREATESTRUCTA*, void*)
{
    if (!m_pictures.Create(this, contentsId, WS_CHILD | WS_VISIBLE | MVLBS_MULTISELECT, CRect(0, 0, 240, 300),
                           eMVLBMode_Grid))
        return 0;
    m_pictures.SetGridSize(CSize(pictureSide, pictureSide), CSize(76, 96));
    m_pictures.AppendColumn(eMVLBAlign_Left, 0, 110, "Name");
    m_pictures.AppendColumn(eMVLBAlign_Right, 1, 80, "Length");
    m_pictures.SetListModeWidth(110);
    m_pictures.SetDetailsModeHorizontalExtent(190);
    for (int i = 0; i < clipCount; ++i) m_pictures.AppendItem(i);
    m_pictures.EnableDragging(1);
    m_pictures.SetNewSelect(2);
    return 1;
}

void Pictures::GetItemText(StringW& out, int id, int column)
{
    CString text;
    if (column == 0)
        text.Format("Clip %d", id + 1);
    else
        text.Format("0:%02d", 10 + id * 7 % 50);
    out = StringW(static_cast<const char*>(text));
}

int Pictures::GetItemPicture(int id, CDib& out)
{
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), pictureSide, pictureSide, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    std::vector<BYTE> pixels(static_cast<std::size_t>(4 * pictureSide * pictureSide));
    Paint(pixels, id);
    out.LoadGlimmerViewBitmap(&info, pixels.data());
    return 1;
}

// Clips may be dropped on any window of the program: they are moved to the end of the list.
DWORD Pictures::GetDragEffect(int x, int y) { return CWnd::WindowFromPoint(CPoint(x, y)) ? 2 : 0; }

void Pictures::OnDrop(int, int, CArray<int, int>& ids, int)
{
    for (int i = 0; i < ids.GetSize(); ++i) {
        DeleteItem(ids[i]);
        AppendItem(ids[i]);
    }
}

void Pictures::MakeDragImage(CImageList* images)
{
    constexpr int side = 32;
    images->Create(side, side, ILC_COLOR32, 3, 1);
    CClientDC screen(this);
    for (const COLORREF colour : {RGB(117, 80, 123), RGB(78, 154, 6), RGB(52, 101, 164)}) {
        CDC dc;
        dc.CreateCompatibleDC(&screen);
        CBitmap bitmap;
        bitmap.Attach(CreateCompatibleBitmap(screen, side, side));
        CBitmap* const former = dc.SelectObject(&bitmap);
        dc.FillSolidRect(0, 0, side, side, colour);
        dc.SelectObject(former);
        images->Add(static_cast<HBITMAP>(bitmap.m_hObject), HBITMAP(nullptr));
    }
}
