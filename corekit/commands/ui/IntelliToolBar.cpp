#include "corekit/commands/ui/IntelliToolBar.h"

#include "corekit/commands/CmdItem.h"
#include "corekit/foundation/ui/BitmapResource.h"
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/framework/ui/GdiObject.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CIntelliToolBar, CToolBar)

BEGIN_MESSAGE_MAP(CIntelliToolBar, CToolBar)
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
END_MESSAGE_MAP()

int CIntelliToolBar::m_bLargeButtons = 0;
int CIntelliToolBar::m_bEnableFloat = 1;
CSize CIntelliToolBar::m_szLargeBitmap(32, 30);

namespace {

constexpr CSize smallPicture(16, 15), smallButton(24, 22);
constexpr int roomRoundLarge = 16;

constinit corekit::detail::ToolBarCommands* source = nullptr;

bool findItem(UINT command, CCmdItem& item) { return source && source->GetItemByCommand(command, item); }

UINT bitmapOf(const CCmdItem& item)
{
    return CIntelliToolBar::UsingLargeButtons() ? item.m_nLargeBitmap : item.m_nSmallBitmap;
}

} // namespace

void corekit::detail::setToolBarCommands(ToolBarCommands* commands) { source = commands; }

void CIntelliToolBar::EnableLargeButtons(int enable, const CSize* size)
{
    m_bLargeButtons = enable;
    if (size) m_szLargeBitmap = *size;
}

void CIntelliToolBar::SetSizesFor(CSize picture)
{
    SetButtonSize(picture + CSize(roomRoundLarge, roomRoundLarge));
    SetBitmapSize(picture);
}

int CIntelliToolBar::CreateFromData(CFrameWnd* frame, UINT id, const CUIntArray& commands, const char* name,
                                    CSize* customSize)
{
    m_name = name;
    constexpr DWORD style = WS_CHILD | WS_VISIBLE | CBRS_TOP | CBRS_TOOLTIPS | CBRS_FLYBY;
    if (!Create(frame, style, id)) return 0;
    SetWindowText(m_name);
    m_hasCustomSize = customSize != nullptr;
    if (customSize) m_customSize = *customSize;
    if (m_hasCustomSize || m_bLargeButtons) SetSizesFor(LargeSize());
    for (int i = 0; i < commands.GetSize(); ++i)
        if (!AppendButton(commands.GetAt(i))) return 0;
    EnableDocking(CBRS_ALIGN_ANY | CBRS_FLOAT_MULTI);
    return 1;
}

void CIntelliToolBar::SetName(const CString& name)
{
    m_name = name;
    if (m_hWnd) SetWindowText(m_name);
}

// ---- Buttons

int CIntelliToolBar::InsertButton(int index, UINT command)
{
    TBBUTTON button{0, 0, TBSTATE_ENABLED, TBSTYLE_SEP};
    if (command) {
        CCmdItem item;
        if (!findItem(command, item)) return 0;
        const UINT bitmap = bitmapOf(item);
        if (!IsBitmapInstalled(bitmap) && !InstallBitmap(bitmap)) return 0;
        button = {static_cast<int>(item.m_nImageIndex) + GetBitmapImageStart(bitmap),
                  static_cast<int>(item.m_nCommand), TBSTATE_ENABLED, TBSTYLE_BUTTON};
    }
    return CToolBar::InsertButton(index, &button);
}

void CIntelliToolBar::DeleteAllButtons()
{
    for (int i = GetButtonCount(); i-- > 0;) DeleteButton(i);
}

void CIntelliToolBar::GetButtonArray(CUIntArray& commands) const
{
    commands.SetSize(GetButtonCount());
    for (int i = 0; i < GetButtonCount(); ++i) commands[i] = GetItemID(i);
}

void CIntelliToolBar::ToggleButtonSize()
{
    const CSize large = LargeSize();
    for (int i = 0; i < GetButtonCount(); ++i) {
        TBBUTTON button{};
        GetButton(i, &button);
        CCmdItem item;
        const bool hasItem = button.idCommand && findItem(static_cast<UINT>(button.idCommand), item);
        const UINT bitmap = hasItem ? bitmapOf(item) : 0;
        if (hasItem && !IsBitmapInstalled(bitmap) && !InstallBitmap(bitmap)) break;
        SetButtonSize(m_bLargeButtons ? large + CSize(roomRoundLarge, roomRoundLarge) : smallButton);
        if (!hasItem) continue;
        SetBitmapSize(m_bLargeButtons ? large : smallPicture);
        button.iBitmap = static_cast<int>(item.m_nImageIndex) + GetBitmapImageStart(bitmap);
        DeleteButton(i);
        CToolBar::InsertButton(i, &button);
    }
}

// ---- Bitmaps

int CIntelliToolBar::IsBitmapInstalled(UINT bitmap) const { return GetBitmapImageStart(bitmap) >= 0; }

int CIntelliToolBar::GetBitmapImageStart(UINT bitmap) const
{
    const auto found = std::ranges::find(m_bitmaps, bitmap, &InstalledBitmap::id);
    return found == m_bitmaps.end() ? -1 : found->firstImage;
}

int CIntelliToolBar::InstallBitmap(UINT id)
{
    if (m_bitmaps.size() >= maximumBitmaps) return 0;
    CBitmap bitmap;
    BITMAP measures{};
    if (!bitmap.Attach(AfxLoadBitmap(id)) || !bitmap.GetObject(sizeof measures, &measures)) return 0;
    CSize picture = smallPicture;
    if (measures.bmHeight != smallPicture.cy) {
        picture = LargeSize();
        if (measures.bmHeight != picture.cy || picture.cx < 1) return 0;
    }
    const CSize present = GetBitmapSize();
    SetBitmapSize(picture);
    const int first = AddBitmap(measures.bmWidth / picture.cx, static_cast<HBITMAP>(bitmap.m_hObject));
    SetBitmapSize(present);
    if (first < 0) return 0;
    m_bitmaps.push_back({id, first});
    return 1;
}

// ---- Mouse and life

// Buttons work as ever; only the bar itself stays where it is.
void CIntelliToolBar::OnLButtonDown(UINT flags, CPoint point)
{
    if (m_bEnableFloat || ButtonAt(point) >= 0)
        CToolBar::OnLButtonDown(flags, point);
    else
        Default();
}

void CIntelliToolBar::OnLButtonDblClk(UINT flags, CPoint point)
{
    if (m_bEnableFloat || ButtonAt(point) >= 0)
        CToolBar::OnLButtonDblClk(flags, point);
    else
        Default();
}

void CIntelliToolBar::PostNcDestroy()
{
    CToolBar::PostNcDestroy();
    if (source) source->RemoveToolbar(this);
    delete this;
}
